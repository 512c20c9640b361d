#include "vantoqtdoublespinbox.h"

#include <QFocusEvent>
#include <QKeyEvent>
#include <QLineEdit>
#include <QWheelEvent>

#include <cmath>

VantoQtDoubleSpinBox::VantoQtDoubleSpinBox(QWidget* parent) : QDoubleSpinBox(parent)
{
    // Typing must not write every keystroke to the camera; Enter or a step does.
    setKeyboardTracking(false);
    // Not WheelFocus: a wheel turned over the box while scrolling must not grab it.
    setFocusPolicy(Qt::StrongFocus);
    connect(lineEdit(), &QLineEdit::inputRejected, this, &VantoQtDoubleSpinBox::onInputRejected);
}

QString VantoQtDoubleSpinBox::withoutAffixes(QString text) const
{
    if (!prefix().isEmpty() && text.startsWith(prefix())) {
        text.remove(0, prefix().size());
    }
    if (!suffix().isEmpty() && text.endsWith(suffix())) {
        text.chop(suffix().size());
    }
    return text.trimmed();
}

void VantoQtDoubleSpinBox::onInputRejected()
{
    const QString attempt = withoutAffixes(m_attempt);
    // Not from inside the line edit's own handling of the key.
    QMetaObject::invokeMethod(
        this,
        [this, attempt] {
            setValue(value());
            lineEdit()->setModified(false);
            selectAll();
            Q_EMIT typingRefused(attempt);
        },
        Qt::QueuedConnection);
}

void VantoQtDoubleSpinBox::setPageStep(double step)
{
    m_pageStep = std::isfinite(step) && step > 0.0 ? step : 0.0;
}

bool VantoQtDoubleSpinBox::isEditing() const
{
    return lineEdit()->isModified();
}

void VantoQtDoubleSpinBox::stepBy(int steps)
{
    int count = steps;
    if (m_pageKey) {
        m_pageKey = false;
        const double single = singleStep();
        const double page = m_pageStep > 0.0 ? m_pageStep : 10.0 * single;
        const double pages = single > 0.0 ? std::round(page / single) : 10.0;
        const int perPage = int(qBound(1.0, pages, 1.0e9));
        count = steps < 0 ? -perPage : perPage;
    }
    // Uncommitted typing is where the step starts from. The typing ends here, before any
    // signal, so that listeners see a box that is not being edited any more.
    lineEdit()->setModified(false);
    interpretText();
    setValue(steppedValue(value(), count));
    selectAll();
    Q_EMIT editingFinished();
}

double VantoQtDoubleSpinBox::steppedValue(double from, int steps) const
{
    return qBound(minimum(), from + double(steps) * singleStep(), maximum());
}

void VantoQtDoubleSpinBox::keyPressEvent(QKeyEvent* event)
{
    switch (event->key()) {
    case Qt::Key_PageUp:
    case Qt::Key_PageDown:
        m_pageKey = true;
        break;
    case Qt::Key_Escape:
        // Re-showing the committed value drops the typing; the editor stays open.
        setValue(value());
        lineEdit()->setModified(false);
        selectAll();
        event->accept();
        Q_EMIT editingCancelled();
        return;
    default:
        break;
    }
    const bool commit = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    const QString typed = commit && isEditing() ? withoutAffixes(lineEdit()->text()) : QString();
    if (!event->text().isEmpty() && event->text().at(0).isPrint()) {
        QString attempt = lineEdit()->text();
        if (lineEdit()->hasSelectedText()) {
            attempt.replace(lineEdit()->selectionStart(), lineEdit()->selectedText().size(),
                            event->text());
        } else {
            attempt.insert(lineEdit()->cursorPosition(), event->text());
        }
        m_attempt = attempt;
    } else {
        m_attempt = lineEdit()->text();
    }
    if (commit) {
        // The typing ends before the base commits it and signals.
        lineEdit()->setModified(false);
    }
    QDoubleSpinBox::keyPressEvent(event);
    // At a bound the base does not step, and the flag must not turn the next arrow into a page.
    m_pageKey = false;
    if (commit) {
        // Committed already; the view must not close the editor or move on.
        event->accept();
        if (!typed.isEmpty()) {
            Q_EMIT typingCommitted(typed);
        }
    }
}

void VantoQtDoubleSpinBox::wheelEvent(QWheelEvent* event)
{
    if (!hasFocus()) {
        event->ignore();
        return;
    }
    QDoubleSpinBox::wheelEvent(event);
}

void VantoQtDoubleSpinBox::focusOutEvent(QFocusEvent* event)
{
    const QString typed = isEditing() ? withoutAffixes(lineEdit()->text()) : QString();
    // The typing ends before the base commits it and signals.
    lineEdit()->setModified(false);
    QDoubleSpinBox::focusOutEvent(event);
    if (!typed.isEmpty()) {
        Q_EMIT typingCommitted(typed);
    }
}

void VantoQtDoubleSpinBox::showEvent(QShowEvent* event)
{
    QDoubleSpinBox::showEvent(event);
    // A view selects all of a spin box editor's text when it creates the editor, focus or not;
    // in a tree full of open editors that would paint a selection in every row.
    if (!hasFocus()) {
        lineEdit()->deselect();
    }
}
