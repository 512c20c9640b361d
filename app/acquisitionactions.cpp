#include "acquisitionactions.h"

#include <parametercollection/exception.h>
#include <parametercollection/iparametercollection.h>

#include <QAction>
#include <QKeySequence>

namespace VantoViewer {

using Plugin::Acquisition::IAcquisition;

AcquisitionActions::AcquisitionActions(QObject* parent)
    : QObject(parent),
      m_singleShot(newAction(tr("Single Shot"), QKeySequence(Qt::Key_F6),
                             QStringLiteral("VantoViewer.Acquisition.SingleShot"), this)),
      m_continuousShot(newAction(tr("Continuous Shot"), QKeySequence(Qt::Key_F5),
                                 QStringLiteral("VantoViewer.Acquisition.ContinuousShot"), this)),
      m_stop(newAction(tr("Stop"), QKeySequence(Qt::Key_F7),
                       QStringLiteral("VantoViewer.Acquisition.Stop"), this)),
      m_softwareTrigger(newAction(tr("Software Trigger"), QKeySequence(Qt::Key_F9),
                                  QStringLiteral("VantoViewer.Acquisition.SoftwareTrigger"), this))
{
    m_singleShot->setStatusTip(tr("Acquires one image"));
    m_continuousShot->setStatusTip(tr("Acquires images until stopped"));
    m_stop->setStatusTip(tr("Stops acquiring"));
    m_softwareTrigger->setStatusTip(tr("Executes TriggerSoftware: one trigger for the camera"));
    connect(m_singleShot, &QAction::triggered, this, [this]() {
        if (m_acquisition) {
            m_acquisition->start(IAcquisition::SingleFrame);
        }
    });
    connect(m_continuousShot, &QAction::triggered, this, [this]() {
        if (m_acquisition) {
            m_acquisition->start(IAcquisition::Continuous);
        }
    });
    connect(m_stop, &QAction::triggered, this, [this]() {
        if (m_acquisition) {
            m_acquisition->stop();
        }
    });
    connect(m_softwareTrigger, &QAction::triggered, this,
            &AcquisitionActions::executeSoftwareTrigger);
    updateEnabled();
}

AcquisitionActions::~AcquisitionActions()
{
    unwatchAll();
}

QAction* AcquisitionActions::newAction(const QString& text, const QKeySequence& shortcut,
                                       const QString& objectName, QObject* parent)
{
    auto* action = new QAction(text, parent);
    action->setObjectName(objectName);
    action->setShortcut(shortcut);
    // The key shows wherever the action does, tool bar buttons included.
    action->setToolTip(text + QStringLiteral(" (") + shortcut.toString(QKeySequence::NativeText) +
                       QLatin1Char(')'));
    return action;
}

QList<QAction*> AcquisitionActions::actions() const
{
    return {m_singleShot, m_continuousShot, m_stop, m_softwareTrigger};
}

void AcquisitionActions::setCamera(
    IAcquisition* acquisition,
    const QSharedPointer<ParameterCollection::IParameterCollection>& collection)
{
    if (m_acquisition) {
        disconnect(m_acquisition, nullptr, this, nullptr);
    }
    unwatchAll();
    m_acquisition = acquisition;
    m_collection = collection;
    if (m_acquisition) {
        connect(m_acquisition, &IAcquisition::stateChanged, this,
                &AcquisitionActions::updateEnabled);
    }
    if (m_collection) {
        watch(m_collection->getParameter(QLatin1String(TRIGGER_MODE)));
        watch(m_collection->getParameter(QLatin1String(TRIGGER_SOFTWARE)));
    }
    updateEnabled();
}

void AcquisitionActions::watch(const QSharedPointer<ParameterCollection::IParameter>& parameter)
{
    if (!parameter) {
        return;
    }
    // Observed, so that a refresh of the camera's features reads it again too.
    parameter->addObserver();
    connect(parameter.data(), &ParameterCollection::IParameter::parameterDataChanged, this,
            &AcquisitionActions::updateEnabled);
    m_watched.append(parameter);
}

void AcquisitionActions::unwatchAll()
{
    for (const QSharedPointer<ParameterCollection::IParameter>& parameter : qAsConst(m_watched)) {
        disconnect(parameter.data(), nullptr, this, nullptr);
        parameter->removeObserver();
    }
    m_watched.clear();
}

bool AcquisitionActions::triggerModeIsOn() const
{
    if (!m_collection || m_collection->isLost()) {
        return false;
    }
    const auto mode = m_collection->getParameter(QLatin1String(TRIGGER_MODE));
    const auto command = m_collection->getParameter(QLatin1String(TRIGGER_SOFTWARE));
    if (!mode || !command) {
        return false;
    }
    const auto modeData = mode->getParameterData();
    const auto commandData = command->getParameterData();
    return modeData && modeData->readable && modeData->value.toString() == QLatin1String("On") &&
           commandData && commandData->writable;
}

void AcquisitionActions::updateEnabled()
{
    const IAcquisition::State state = m_acquisition ? m_acquisition->state() : IAcquisition::Idle;
    const bool idle = m_acquisition && state == IAcquisition::Idle;
    const bool running =
        m_acquisition && (state == IAcquisition::Starting || state == IAcquisition::Acquiring);
    m_singleShot->setEnabled(idle);
    m_continuousShot->setEnabled(idle);
    m_stop->setEnabled(running);
    m_softwareTrigger->setEnabled(triggerModeIsOn());
}

void AcquisitionActions::executeSoftwareTrigger()
{
    const auto command =
        m_collection ? m_collection->getParameter(QLatin1String(TRIGGER_SOFTWARE)) : nullptr;
    if (!command) {
        return;
    }
    try {
        command->setValue(QVariant(true));
    } catch (const ParameterCollection::Exception& e) {
        Q_EMIT failed(e.text());
    }
}

} // namespace VantoViewer
