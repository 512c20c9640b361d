#pragma once

#include <acquisition/iacquisition.h>

#include <QList>
#include <QObject>
#include <QPointer>
#include <QSharedPointer>

class QAction;

namespace ParameterCollection {
class IParameter;
class IParameterCollection;
} // namespace ParameterCollection

namespace VantoViewer {

// Single Shot, Continuous Shot, Stop and Software Trigger for the active camera. Each is
// enabled only when it can do something: the shots while the camera is idle, Stop while it
// acquires, Software Trigger while the camera's TriggerMode is On.
class AcquisitionActions : public QObject {
    Q_OBJECT
public:
    static constexpr char TRIGGER_MODE[] = "@CameraDevice/TriggerMode";
    static constexpr char TRIGGER_SOFTWARE[] = "@CameraDevice/TriggerSoftware";

    explicit AcquisitionActions(QObject* parent = nullptr);
    ~AcquisitionActions() override;

    // Follows another camera; either may be null (no camera, or a camera without a stream).
    // The previous camera's acquisition goes on as it was.
    void setCamera(Plugin::Acquisition::IAcquisition* acquisition, // not owned
                   const QSharedPointer<ParameterCollection::IParameterCollection>& collection);
    Plugin::Acquisition::IAcquisition* acquisition() const { return m_acquisition; }

    QAction* singleShot() const { return m_singleShot; }
    QAction* continuousShot() const { return m_continuousShot; }
    QAction* stop() const { return m_stop; }
    QAction* softwareTrigger() const { return m_softwareTrigger; }
    QList<QAction*> actions() const;

Q_SIGNALS:
    // An action the camera refused, e.g. a software trigger while the device is lost.
    void failed(const QString& message);

private:
    void updateEnabled();
    void watch(const QSharedPointer<ParameterCollection::IParameter>& parameter);
    void unwatchAll();
    bool triggerModeIsOn() const;
    void executeSoftwareTrigger();
    static QAction* newAction(const QString& text, const QKeySequence& shortcut,
                              const QString& objectName, QObject* parent);

    QPointer<Plugin::Acquisition::IAcquisition> m_acquisition;
    QSharedPointer<ParameterCollection::IParameterCollection> m_collection;
    QList<QSharedPointer<ParameterCollection::IParameter>> m_watched;
    QAction* m_singleShot;      // child
    QAction* m_continuousShot;  // child
    QAction* m_stop;            // child
    QAction* m_softwareTrigger; // child
};

} // namespace VantoViewer
