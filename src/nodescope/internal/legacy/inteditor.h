#pragma once

#include "abstractitemeditor.h"

#include <QLineEdit>

class QKeyEvent;

// The one-line editor of integer features that are not shown as sliders. The text goes to the
// parameter as typed (decimal, or "0x" hexadecimal); the validator refuses what cannot be a
// value of the feature while the user types.
class IntEditor : public QLineEdit, public AbstractItemEditor {
    Q_OBJECT
public:
    explicit IntEditor(QWidget* parent = nullptr);

    void setEditorData(AbstractItemEditor::EditorData data) override;
    // The text for the parameter layer; invalid, with a notice, for an address that is none.
    QVariant editorData() override;

Q_SIGNALS:
    // For the status line: typing that was refused, and why.
    void notice(const QString& text);

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    enum class Check { None, Decimal, Hex };
    void setCheck(Check check, long long minimum, long long maximum);
    void setEditorText(const QString& text);

    void onInputRejected();
    void showCurrentValue();

    QString m_representation;
    QString m_feature;
    QString m_current; // the value as loaded, shown again when typing is refused
    qint64 m_minimum = 0;
    qint64 m_maximum = 0;
    QString m_attempt;
};
