#pragma once

#include <QObject>

class QEvent;

// Reports focus entering and leaving the spin box it is installed on, without taking the focus
// events away from it.
class SpinBoxEventCatcher : public QObject {
    Q_OBJECT
public:
    explicit SpinBoxEventCatcher(QObject* parent = nullptr);

    bool eventFilter(QObject* watched, QEvent* event) override;

Q_SIGNALS:
    void focusEvent(bool focusIn);
};
