#pragma once

namespace Plugin {
namespace FeatureTree {

// Registers, under their full and their typedef names, the types that the feature tree's
// services and panels pass through queued and signature-string connections: the camera info
// pointers ("Plugin::CameraPool::BaseInfoPtr", "Plugin::CameraPool::CameraInfoPtr"),
// GenApi::EVisibility and GenApi::EAccessMode, the parameter, parameter data and parameter
// collection pointers, and Core::CId. Safe to call more than once.
void registerFeatureTreeMetaTypes();

} // namespace FeatureTree
} // namespace Plugin
