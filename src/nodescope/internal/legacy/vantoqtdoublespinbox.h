#pragma once

#include <QDoubleSpinBox>

class QFocusEvent;
class QKeyEvent;
class QWheelEvent;

// A double spin box made for item views. Every arrow, wheel or page step commits at once;
// typing commits only on Enter (or when focus leaves), and Escape takes the typing back instead
// of closing the editor. The wheel turns the value only while the box has the keyboard focus,
// so that scrolling a feature tree over a column of editors never changes a camera setting.
class VantoQtDoubleSpinBox : public QDoubleSpinBox {
    Q_OBJECT
public:
    explicit VantoQtDoubleSpinBox(QWidget* parent = nullptr);

    // In value units; 0 (the default) means ten single steps.
    double pageStep() const { return m_pageStep; }
    void setPageStep(double step);
    // True while the text holds typing that was neither committed nor taken back.
    bool isEditing() const;

    void stepBy(int steps) override;

Q_SIGNALS:
    // Escape took the typing back.
    void editingCancelled();
    // Typing ended, by Enter or by leaving the box, and the box took it as its value (clamped
    // to the range, or moved onto the grid); `typed` is the text as the user typed it.
    void typingCommitted(const QString& typed);
    // A key was refused: `attempt` is the text it would have made. The box shows its value
    // again.
    void typingRefused(const QString& attempt);

protected:
    void showEvent(QShowEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    // Where `steps` single steps lead from `from`; never outside the range.
    virtual double steppedValue(double from, int steps) const;

private:
    QString withoutAffixes(QString text) const;
    void onInputRejected();

    QString m_attempt;
    double m_pageStep = 0.0;
    bool m_pageKey = false;
};
