#pragma once

#include <QElapsedTimer>
#include <QObject>
#include <QString>
#include <QTextStream>
#include <QTimer>

class QDockWidget;

namespace VantoViewer {

class FilledViewWatcher;
class MainWindow;

// `vantoviewer --screenshot FILE.png`: once the feature view the user sees first has painted
// its rows, grabs the window into FILE.png and quits the application. Gives up waiting after
// GIVE_UP_MS and saves the window as it is.
class ScreenshotRun : public QObject {
    Q_OBJECT
public:
    static constexpr int GIVE_UP_MS = 20000;

    // `front`: the panel brought to the front, or null. `sinceMain` runs from main()'s start.
    ScreenshotRun(MainWindow& window, QDockWidget* front, const QString& file, QTextStream& err,
                  const QElapsedTimer& sinceMain);

    // With --live: the picture waits for the first image as well. Before start().
    void awaitFirstImage() { m_awaitImage = true; }
    void start();
    // 0 once saved, 1 when the file could not be written.
    int result() const { return m_result; }

private:
    // One of the things awaited has shown.
    void ready();
    void saveAndQuit();

    MainWindow& m_window;
    QDockWidget* m_front;
    QString m_file;
    QTextStream& m_err;
    QElapsedTimer m_sinceMain;
    QTimer m_giveUp;
    FilledViewWatcher* m_watcher = nullptr; // child of the window
    bool m_awaitImage = false;
    int m_awaited = 0; // the feature view's rows and the first image, as far as awaited
    QMetaObject::Connection m_firstImage;
    bool m_saved = false;
    int m_result = 0;
};

} // namespace VantoViewer
