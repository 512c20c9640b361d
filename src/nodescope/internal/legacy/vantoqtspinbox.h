#pragma once

#include <QSpinBox>

class QKeyEvent;

// The spin box of the slider editors. Every step (arrow, wheel, page key) counts as finished
// editing, so that the value goes to the camera at once; Escape undoes the typed text and Enter
// stays inside, so neither closes the editor of the view around it.
class VantoQtSpinBox : public QSpinBox {
    Q_OBJECT
public:
    explicit VantoQtSpinBox(QWidget* parent = nullptr);

    // In value units, like QSlider's page step: Page Up moves the value by about this much,
    // in whole single steps (at least one).
    int pageStep() const { return m_pageStep; }
    void setPageStep(int pageStep) { m_pageStep = pageStep; }

    void stepBy(int steps) override;

protected:
    void showEvent(QShowEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    int m_pageStep = 10;
    bool m_pageKey = false;
};
