#pragma once

#include <core/cid.h>
#include <core/iservice.h>

#include <QString>
#include <QVariant>

class QMainWindow;

namespace Plugin {
namespace AppCore {

// The host's main window and the persistence of panel state and layout between runs.
class IWindowService : public Core::Service::IService {
    Q_OBJECT
public:
    using Core::Service::IService::IService;
    ~IWindowService() override = default;

    // Values are kept per panel (widgetId) and key.
    virtual void saveState(const Core::CId& widgetId, const QString& key,
                           const QVariant& value) = 0;
    // defaultValue when nothing was saved under that panel and key.
    virtual QVariant restoreState(const Core::CId& widgetId, const QString& key,
                                  const QVariant& defaultValue) const = 0;

    // Null when the host runs without a main window, as in tests and batch modes.
    virtual QMainWindow* mainWindow() const = 0;
};

} // namespace AppCore
} // namespace Plugin
