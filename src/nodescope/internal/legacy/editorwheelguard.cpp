#include "editorwheelguard.h"

#include <QAbstractScrollArea>
#include <QAbstractSlider>
#include <QAbstractSpinBox>
#include <QComboBox>
#include <QCoreApplication>
#include <QEvent>
#include <QWidget>

namespace {

bool turnsWithTheWheel(const QWidget* widget)
{
    return qobject_cast<const QAbstractSlider*>(widget) ||
           qobject_cast<const QAbstractSpinBox*>(widget) || qobject_cast<const QComboBox*>(widget);
}

void watch(QWidget* widget, EditorWheelGuard* guard)
{
    widget->removeEventFilter(guard);
    widget->installEventFilter(guard);
    // A wheel turned over a widget with wheel focus would hand it the focus first.
    if ((widget->focusPolicy() & Qt::WheelFocus) == Qt::WheelFocus) {
        widget->setFocusPolicy(Qt::StrongFocus);
    }
}

} // namespace

EditorWheelGuard::EditorWheelGuard(QObject* parent) : QObject(parent) {}

void EditorWheelGuard::guard(QWidget* editor)
{
    if (!editor) {
        return;
    }
    auto* guard = editor->findChild<EditorWheelGuard*>(QString(), Qt::FindDirectChildrenOnly);
    if (!guard) {
        guard = new EditorWheelGuard(editor);
    }
    if (turnsWithTheWheel(editor)) {
        watch(editor, guard);
    }
    const QList<QWidget*> children = editor->findChildren<QWidget*>();
    for (QWidget* child : children) {
        if (turnsWithTheWheel(child)) {
            watch(child, guard);
        }
    }
}

bool EditorWheelGuard::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() != QEvent::Wheel) {
        return QObject::eventFilter(watched, event);
    }
    auto* widget = qobject_cast<QWidget*>(watched);
    if (!widget || widget->hasFocus()) {
        return false;
    }
    // Straight to the viewport of the view around the editor: Qt passes a wheel on to the
    // parents only when the window system sent it, and not past every kind of widget.
    for (QWidget* parent = widget->parentWidget(); parent; parent = parent->parentWidget()) {
        auto* area = qobject_cast<QAbstractScrollArea*>(parent->parentWidget());
        if (area && area->viewport() == parent) {
            QCoreApplication::sendEvent(parent, event);
            return true;
        }
    }
    // Outside a view, the parents may use it.
    event->ignore();
    return true;
}
