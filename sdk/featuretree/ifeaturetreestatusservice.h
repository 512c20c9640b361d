#pragma once

#include <core/iservice.h>
#include <genapi/genapitypes.h>
#include <parametercollection/iparameter.h>

#include <QSharedPointer>
#include <QString>

namespace Plugin {
namespace FeatureTree {

// The channel through which the feature tree panels tell the host's status display what the
// user is looking at. It only carries signals, so it needs no implementation of its own.
class IFeatureTreeStatusService : public Core::Service::IService {
    Q_OBJECT
public:
    // Registers the metatypes of the arguments (registerFeatureTreeMetaTypes()).
    explicit IFeatureTreeStatusService(QObject* parent = nullptr);
    ~IFeatureTreeStatusService() override;

Q_SIGNALS:
    void newText(QString text);
    void visibilityChanged(GenApi::EVisibility visibility);
    void currentChanged(QSharedPointer<ParameterCollection::IParameter> parameter);
};

} // namespace FeatureTree
} // namespace Plugin
