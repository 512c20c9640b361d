#pragma once

#include "abstractitemeditor.h"

#include <QLineEdit>

// The one-line editor of integer features that are not shown as sliders. The text goes to the
// parameter as typed (decimal, or "0x" hexadecimal); the validator refuses what cannot be a
// value of the feature while the user types.
class IntEditor : public QLineEdit, public AbstractItemEditor {
    Q_OBJECT
public:
    explicit IntEditor(QWidget* parent = nullptr);

    void setEditorData(AbstractItemEditor::EditorData data) override;
    QVariant editorData() override;

private:
    enum class Check { None, Decimal, Hex };
    void setCheck(Check check, long long minimum, long long maximum);
    void setEditorText(const QString& text);

    QString m_representation;
};
