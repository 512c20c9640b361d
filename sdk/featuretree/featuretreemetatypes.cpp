#include "featuretreemetatypes.h"

#include <camerapool/ibaseinfo.h>
#include <camerapool/icamerainfo.h>
#include <core/cid.h>
#include <genapi/genapitypes.h>
#include <parametercollection/iparameter.h>
#include <parametercollection/iparametercollection.h>
#include <parametercollection/parameterdata.h>

#include <QMetaType>

namespace Plugin {
namespace FeatureTree {

void registerFeatureTreeMetaTypes()
{
    // Connections by signature string look types up by the name written in the signature,
    // which may be either spelling.
    qRegisterMetaType<Plugin::CameraPool::BaseInfoPtr>("Plugin::CameraPool::BaseInfoPtr");
    qRegisterMetaType<Plugin::CameraPool::BaseInfoPtr>(
        "QSharedPointer<Plugin::CameraPool::IBaseInfo>");
    qRegisterMetaType<Plugin::CameraPool::CameraInfoPtr>("Plugin::CameraPool::CameraInfoPtr");
    qRegisterMetaType<Plugin::CameraPool::CameraInfoPtr>(
        "QSharedPointer<Plugin::CameraPool::ICameraInfo>");

    qRegisterMetaType<GenApi::EVisibility>("GenApi::EVisibility");
    qRegisterMetaType<GenApi::EAccessMode>("GenApi::EAccessMode");

    qRegisterMetaType<QSharedPointer<ParameterCollection::IParameter>>(
        "QSharedPointer<ParameterCollection::IParameter>");
    qRegisterMetaType<QSharedPointer<const ParameterCollection::ParameterData>>(
        "QSharedPointer<const ParameterCollection::ParameterData>");
    qRegisterMetaType<QSharedPointer<ParameterCollection::IParameterCollection>>(
        "QSharedPointer<ParameterCollection::IParameterCollection>");

    qRegisterMetaType<Core::CId>("Core::CId");
}

} // namespace FeatureTree
} // namespace Plugin
