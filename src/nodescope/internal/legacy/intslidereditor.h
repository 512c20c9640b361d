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
    // The range tool tip, with the feature's unit.
    void updateToolTip() override;

Q_SIGNALS:
    // For the status line: typing that was not written as typed, and why.
    void notice(const QString& text);

private:
    void onTypingCommitted(const QString& typed);
    void onTypingRefused(const QString& attempt);

    QString m_feature;
    QString m_unit;
};
