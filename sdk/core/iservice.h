#pragma once

#include <QObject>

namespace Core {
namespace Service {

// A service that the host or a plug-in offers through the plug-in initializer.
class IService : public QObject {
    Q_OBJECT
public:
    using QObject::QObject;
    ~IService() override = default;

    // Called once, by whoever creates the service, before anyone uses it.
    virtual void initialize() {}
};

} // namespace Service
} // namespace Core
