#include "internal/legacy/toolbuttoneditor.h"

#include <QDebug>

using ParameterCollection::CommandParameterData;
using ParameterCollection::ICommandParameter;
using ParameterCollection::IParameter;

ToolButtonEditor::ToolButtonEditor(QWidget* parent) : QToolButton(parent)
{
    setText(tr("Execute"));
    setAutoRaise(false);
    setCheckable(true);
    setFocusPolicy(Qt::StrongFocus);
    setContentsMargins(0, 0, 0, 0);
    connect(this, &QAbstractButton::clicked, this, &ToolButtonEditor::onClicked);
}

void ToolButtonEditor::setEditorData(AbstractItemEditor::EditorData data)
{
    const auto command = qSharedPointerObjectCast<ICommandParameter>(data.parameter);
    if (!command) {
        if (data.parameter) {
            qDebug("%s is called with non-command node????",
                   qUtf8Printable(data.parameter->getName()));
        }
        forgetCommand();
        return;
    }
    if (command != m_command) {
        forgetCommand();
        m_command = command;
        // The device reports the end of a command by itself, not only through the model.
        connect(m_command.data(), &IParameter::parameterDataChanged, this,
                &ToolButtonEditor::showState);
    }
    try {
        showState(m_command->getParameterData());
    } catch (...) {
        // Keep the state last shown.
    }
}

QVariant ToolButtonEditor::editorData()
{
    const bool pressed = isChecked();
    // Ready for the next press; a running command shows as down and disabled.
    setChecked(false);
    return QVariant(pressed);
}

void ToolButtonEditor::onClicked(bool checked)
{
    if (!checked) {
        return;
    }
    Q_EMIT valueEdited();
    if (!isChecked()) {
        return; // the delegate took the press and writes it
    }
    // Nobody took the press (no view behind this editor): execute it here.
    setChecked(false);
    if (!m_command) {
        return;
    }
    try {
        m_command->execute();
    } catch (...) {
        // Refused (locked, device gone): the button simply stays ready.
    }
}

void ToolButtonEditor::showState(const ParameterCollection::ParameterDataPtr& data)
{
    if (!data) {
        return;
    }
    const auto* commandData = dynamic_cast<const CommandParameterData*>(data.data());
    const bool running = commandData && !commandData->done;
    // Enabled state first: disabling a button lets it up again.
    const bool enabled = data->writable && !running;
    if (isEnabled() != enabled) {
        setEnabled(enabled);
    }
    if (running != m_running) {
        m_running = running;
        // Only on a change: setDown(false) would cancel a press the user is making.
        setDown(running);
    }
}

void ToolButtonEditor::forgetCommand()
{
    if (m_command) {
        disconnect(m_command.data(), &IParameter::parameterDataChanged, this,
                   &ToolButtonEditor::showState);
    }
    m_command.reset();
    if (m_running) {
        m_running = false;
        setDown(false);
    }
}
