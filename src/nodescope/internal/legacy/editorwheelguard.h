#pragma once

#include <QObject>

class QEvent;
class QWidget;

// Keeps the mouse wheel from changing a value editor that does not have the keyboard focus: the
// wheel then goes to the view around the editor, which scrolls. A user scrolling a tree full
// of sliders, spin boxes and combo boxes must never write to the camera by it.
class EditorWheelGuard : public QObject {
    Q_OBJECT
public:
    // Guards `editor` and every slider, spin box and combo box inside it, and takes the wheel
    // out of their focus policies. Guarding an editor twice changes nothing.
    static void guard(QWidget* editor);

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    explicit EditorWheelGuard(QObject* parent);
};
