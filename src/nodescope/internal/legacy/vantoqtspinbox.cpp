#include "vantoqtspinbox.h"

#include <QCoreApplication>
#include <QFocusEvent>
#include <QKeyEvent>
#include <QLineEdit>
#include <QWheelEvent>

namespace {

// Undo is grouped by the line edit; a handful of rounds reaches back to the last value the
// program set, and the bound keeps a line edit that never runs out of undo from hanging us.
const int kMaxUndoRounds = 100;

// The text a key would make of the line edit: its text with the selection, or the position
// of the cursor, replaced by what the key types.
QString textAfterKey(const QLineEdit* edit, const QString& keyText)
{
    QString text = edit->text();
    if (edit->hasSelectedText()) {
        text.replace(edit->selectionStart(), edit->selectedText().size(), keyText);
    } else {
        text.insert(edit->cursorPosition(), keyText);
    }
    return text;
}

} // namespace

VantoQtSpinBox::VantoQtSpinBox(QWidget* parent) : QSpinBox(parent)
{
    // Not WheelFocus: a wheel turned over the box while scrolling must not grab it.
    setFocusPolicy(Qt::StrongFocus);
    // The value is what was committed: typing becomes it on Enter, so that refused typing can
    // be put back.
    setKeyboardTracking(false);
    connect(lineEdit(), &QLineEdit::inputRejected, this, &VantoQtSpinBox::onInputRejected);
}

QString VantoQtSpinBox::typedText() const
{
    return withoutAffixes(lineEdit()->text());
}

QString VantoQtSpinBox::withoutAffixes(QString text) const
{
    if (!prefix().isEmpty() && text.startsWith(prefix())) {
        text.remove(0, prefix().size());
    }
    if (!suffix().isEmpty() && text.endsWith(suffix())) {
        text.chop(suffix().size());
    }
    return text.trimmed();
}

bool VantoQtSpinBox::parseNumber(const QString& text, qint64* value) const
{
    bool ok = false;
    const qint64 number = locale().toLongLong(withoutAffixes(text), &ok);
    if (ok) {
        *value = number;
    }
    return ok;
}

QValidator::State VantoQtSpinBox::validate(QString& input, int& pos) const
{
    const QValidator::State state = QSpinBox::validate(input, pos);
    qint64 number = 0;
    if (state == QValidator::Invalid && parseNumber(input, &number)) {
        // Out of range, but a number: taken as the nearest bound when typing ends.
        return QValidator::Intermediate;
    }
    return state;
}

void VantoQtSpinBox::fixup(QString& input) const
{
    qint64 number = 0;
    if (!parseNumber(input, &number)) {
        QSpinBox::fixup(input);
        return;
    }
    const qint64 bounded = qBound<qint64>(minimum(), number, maximum());
    input = prefix() + textFromValue(static_cast<int>(bounded)) + suffix();
}

void VantoQtSpinBox::keyPressEvent(QKeyEvent* event)
{
    const int key = event->key();
    const bool pageKey = key == Qt::Key_PageUp || key == Qt::Key_PageDown;
    const bool commit = key == Qt::Key_Return || key == Qt::Key_Enter;
    const QString typed = commit && lineEdit()->isModified() ? typedText() : QString();
    m_attempt = event->text().isEmpty() || !event->text().at(0).isPrint()
                    ? lineEdit()->text()
                    : textAfterKey(lineEdit(), event->text());
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
        if (!typed.isEmpty()) {
            Q_EMIT typingCommitted(typed);
        }
        break;
    default:
        break;
    }
}

void VantoQtSpinBox::focusOutEvent(QFocusEvent* event)
{
    const QString typed = lineEdit()->isModified() ? typedText() : QString();
    QSpinBox::focusOutEvent(event);
    if (!typed.isEmpty()) {
        Q_EMIT typingCommitted(typed);
    }
}

void VantoQtSpinBox::wheelEvent(QWheelEvent* event)
{
    if (!hasFocus()) {
        event->ignore(); // the view scrolls
        return;
    }
    QSpinBox::wheelEvent(event);
}

void VantoQtSpinBox::onInputRejected()
{
    const QString attempt = withoutAffixes(m_attempt);
    // Not from inside the line edit's own handling of the key.
    QMetaObject::invokeMethod(
        this,
        [this, attempt] {
            setValue(value());
            selectAll();
            Q_EMIT typingRefused(attempt);
        },
        Qt::QueuedConnection);
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
