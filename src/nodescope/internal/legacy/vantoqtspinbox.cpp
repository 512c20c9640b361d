#include "vantoqtspinbox.h"

#include <QCoreApplication>
#include <QKeyEvent>
#include <QLineEdit>

namespace {

// Undo is grouped by the line edit; a handful of rounds reaches back to the last value the
// program set, and the bound keeps a line edit that never runs out of undo from hanging us.
const int kMaxUndoRounds = 100;

} // namespace

VantoQtSpinBox::VantoQtSpinBox(QWidget* parent) : QSpinBox(parent) {}

void VantoQtSpinBox::keyPressEvent(QKeyEvent* event)
{
    const int key = event->key();
    const bool pageKey = key == Qt::Key_PageUp || key == Qt::Key_PageDown;
    if (pageKey) {
        m_pageKey = true;
    }
    QSpinBox::keyPressEvent(event);
    if (pageKey) {
        // At a bound QAbstractSpinBox does not step at all; the flag must not leak into the
        // next arrow key.
        m_pageKey = false;
    }

    switch (key) {
    case Qt::Key_Escape: {
        event->accept();
        for (int round = 0; round < kMaxUndoRounds && lineEdit()->isUndoAvailable(); ++round) {
            QKeyEvent undo(QEvent::KeyPress, Qt::Key_Z, Qt::ControlModifier);
            QCoreApplication::sendEvent(this, &undo);
        }
        break;
    }
    case Qt::Key_Return:
    case Qt::Key_Enter:
        // QAbstractSpinBox has already emitted editingFinished; the view must not see the key,
        // or it would close the editor.
        event->accept();
        break;
    default:
        break;
    }
}

void VantoQtSpinBox::stepBy(int steps)
{
    if (m_pageKey) {
        m_pageKey = false;
        const int count = qMax(1, m_pageStep / qMax(1, singleStep()));
        steps = steps < 0 ? -count : count;
    }
    QSpinBox::stepBy(steps);
    Q_EMIT editingFinished();
}

void VantoQtSpinBox::showEvent(QShowEvent* event)
{
    QSpinBox::showEvent(event);
    // A view selects all of a spin box editor's text when it creates the editor, focus or not;
    // in a tree full of open editors that would paint a selection in every row.
    if (!hasFocus()) {
        lineEdit()->deselect();
    }
}
