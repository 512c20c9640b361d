#pragma once

#include <core/iservice.h>

#include <QVariantMap>

namespace Plugin {
namespace Nodescope {

// Use cases for the feature trees: display name in the user's language to a QVariant holding
// the QStringList of the use case's full feature names ("@CameraDevice/Width").
class IFeatureTreeUseCaseService : public Core::Service::IService {
    Q_OBJECT
    Q_PROPERTY(QVariantMap useCaseMap READ getUseCaseMap NOTIFY useCaseMapChanged)
public:
    explicit IFeatureTreeUseCaseService(QObject* parent = nullptr) : Core::Service::IService(parent)
    {}
    ~IFeatureTreeUseCaseService() override = default;

    virtual QVariantMap getUseCaseMap() const = 0;
    // The use case behind the "Basic" panel, kept apart so that it never shows up as a choice.
    virtual QVariantMap getBasicUseCaseMap() const = 0;

Q_SIGNALS:
    void useCaseMapChanged();
};

} // namespace Nodescope
} // namespace Plugin
