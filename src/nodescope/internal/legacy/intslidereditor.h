#pragma once

#include "abstractitemeditor.h"
#include "comboslider.h"

// The editor of integer features shown as "Linear" or "Logarithmic": slider and spin box. Every
// value the user picks is announced by valueChanged, which the delegate commits at once.
class IntSliderEditor : public ComboSlider, public AbstractItemEditor {
    Q_OBJECT
public:
    explicit IntSliderEditor(QWidget* parent = nullptr);

    void setEditorData(AbstractItemEditor::EditorData data) override;
    QVariant editorData() override;
};
