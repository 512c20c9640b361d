#pragma once

#include <appcore/sdockpanelfactoryproduct.h>
#include <core/ifactory.h>

namespace Plugin {
namespace AppCore {

// Builds the widget of one dock panel when the host first shows the panel.
class IDockPanelFactory : public Core::Factory::IFactory {
    Q_OBJECT
public:
    using Core::Factory::IFactory::IFactory;
    ~IDockPanelFactory() override = default;

    virtual SDockPanelFactoryProduct createDockPanel() = 0;
};

} // namespace AppCore
} // namespace Plugin
