#pragma once

#include <QObject>
#include <QPointer>

class QAbstractItemView;
class QEvent;
class QWidget;

namespace VantoViewer {

// Tells once when an item view first paints while its model has rows: the moment a user sees a
// filled panel. Watches the view's viewport, where the rows are drawn; the signal is emitted
// while the paint event is delivered, so anything that grabs the window must queue behind it.
class FilledViewWatcher : public QObject {
    Q_OBJECT
public:
    // `view` is not owned; the watcher stops watching when it goes away.
    explicit FilledViewWatcher(QAbstractItemView* view, QObject* parent = nullptr);
    ~FilledViewWatcher() override;

    bool hasSeenFilledPaint() const;

Q_SIGNALS:
    void filledPaint();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    QPointer<QAbstractItemView> m_view;
    QPointer<QWidget> m_viewport;
    bool m_seen = false;
};

} // namespace VantoViewer
