#pragma once

#include <core/cid.h>

#include <QObject>

namespace Core {
namespace Factory {

// Something a plug-in hands to the host so that the host can build objects on demand.
class IFactory : public QObject {
    Q_OBJECT
public:
    using QObject::QObject;
    ~IFactory() override = default;

    // Unique among the factories of one kind.
    virtual Core::CId getId() const = 0;
};

} // namespace Factory
} // namespace Core
