#include "internal/legacy/checkboxeditor.h"

CheckBoxEditor::CheckBoxEditor(QWidget* parent) : QCheckBox(parent)
{
    setFocusPolicy(Qt::NoFocus);
    // clicked() comes from the mouse and the keyboard only, never from setChecked().
    connect(this, &QAbstractButton::clicked, this, &CheckBoxEditor::valueEdited);
}

void CheckBoxEditor::setEditorData(AbstractItemEditor::EditorData data)
{
    if (!data.parameter) {
        return;
    }
    try {
        const auto parameterData = data.parameter->getParameterData();
        if (!parameterData) {
            return;
        }
        if (parameterData->type == ParameterCollection::BooleanType) {
            setChecked(parameterData->value.toBool());
        }
        // A disabled box swallows clicks and keys: read-only and locked values stay as they are.
        if (isEnabled() != parameterData->writable) {
            setEnabled(parameterData->writable);
        }
    } catch (...) {
        // Keep showing what was last known.
    }
}

QVariant CheckBoxEditor::editorData()
{
    return QVariant(isChecked() ? QStringLiteral("1") : QStringLiteral("0"));
}
