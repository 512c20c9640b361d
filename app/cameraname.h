#pragma once

#include <QString>

namespace Plugin {
namespace CameraPool {
class IBaseInfo;
} // namespace CameraPool
} // namespace Plugin

namespace VantoViewer {

// What the user reads as a camera's name: what the camera reports of itself, else how it was
// opened (its id or address), so that no camera goes nameless, not even one lost before it
// could be asked.
class CameraName {
public:
    static QString of(const Plugin::CameraPool::IBaseInfo& info);
};

} // namespace VantoViewer
