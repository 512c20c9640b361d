#pragma once

#include "internal/legacy/abstractitemeditor.h"

#include <QCheckBox>

// Boolean values. Never takes the focus, so a click toggles the value and the keyboard stays
// with the tree.
class CheckBoxEditor : public QCheckBox, public AbstractItemEditor {
    Q_OBJECT
public:
    explicit CheckBoxEditor(QWidget* parent = nullptr);

    void setEditorData(AbstractItemEditor::EditorData data) override;
    // "1" when checked, "0" when not.
    QVariant editorData() override;

Q_SIGNALS:
    // The user toggled the box; loading data never emits it.
    void valueEdited();
};
