#pragma once

#include <QSpinBox>

class QFocusEvent;
class QKeyEvent;
class QWheelEvent;

// The spin box of the slider editors. Every step (arrow, wheel, page key) counts as finished
// editing, so that the value goes to the camera at once; Escape undoes the typed text and Enter
// stays inside, so neither closes the editor of the view around it. The wheel turns the value
// only while the box has the keyboard focus. A number outside the range can be typed; it is
// taken as the nearest bound, and typingCommitted tells what was typed, so that the editor can
// say so.
class VantoQtSpinBox : public QSpinBox {
    Q_OBJECT
public:
    explicit VantoQtSpinBox(QWidget* parent = nullptr);

    // In value units, like QSlider's page step: Page Up moves the value by about this much,
    // in whole single steps (at least one).
    int pageStep() const { return m_pageStep; }
    void setPageStep(int pageStep) { m_pageStep = pageStep; }

    void stepBy(int steps) override;
    QValidator::State validate(QString& input, int& pos) const override;
    void fixup(QString& input) const override;

Q_SIGNALS:
    // Typing ended, by Enter or by leaving the box, and the box took it as its value; `typed`
    // is the text as the user typed it.
    void typingCommitted(const QString& typed);
    // A key was refused: `attempt` is the text it would have made. The box shows its value
    // again.
    void typingRefused(const QString& attempt);

protected:
    void showEvent(QShowEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;

private:
    QString typedText() const;
    QString withoutAffixes(QString text) const;
    bool parseNumber(const QString& text, qint64* value) const;
    void onInputRejected();

    int m_pageStep = 10;
    bool m_pageKey = false;
    QString m_attempt;
};
