#pragma once

#include "internal/legacy/abstractitemeditor.h"

#include <QSharedPointer>
#include <QToolButton>

// Commands: an "Execute" button. A press is handed to the delegate as the value true; the
// button stays down and disabled until the device reports the command done.
class ToolButtonEditor : public QToolButton, public AbstractItemEditor {
    Q_OBJECT
public:
    explicit ToolButtonEditor(QWidget* parent = nullptr);

    void setEditorData(AbstractItemEditor::EditorData data) override;
    // True when a press is waiting to be written; reading it takes the press.
    QVariant editorData() override;

    QSharedPointer<ParameterCollection::ICommandParameter> command() const { return m_command; }

Q_SIGNALS:
    // The user pressed the button: commit now, editorData() holds the press.
    void valueEdited();

private:
    void onClicked(bool checked);
    void showState(const ParameterCollection::ParameterDataPtr& data);
    void forgetCommand();

    QSharedPointer<ParameterCollection::ICommandParameter> m_command;
    bool m_running = false;
};
