#pragma once

#include <QObject>
#include <QPointer>
#include <QString>

#include <functional>

class QProgressDialog;
class QWidget;

namespace VantoViewer {

// Shows that a camera is opening, with a Cancel, for as long as it lives. The dialog is modal to
// the window, which keeps painting and answering while the camera opens but takes no second
// command until the first has ended.
class OpeningProgress : public QObject {
    Q_OBJECT
public:
    static constexpr char OBJECT_NAME[] = "VantoViewer.OpeningProgress";

    // `cancel` runs when the user presses Cancel.
    OpeningProgress(QWidget* window, const QString& label, std::function<void()> cancel);
    ~OpeningProgress() override;

    bool wasCancelled() const { return m_cancelled; }

private:
    QPointer<QProgressDialog> m_dialog; // owned here, parented to the window for its placement
    bool m_cancelled = false;
};

} // namespace VantoViewer
