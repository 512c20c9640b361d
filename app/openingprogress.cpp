#include "openingprogress.h"

#include <QProgressDialog>

namespace VantoViewer {

OpeningProgress::OpeningProgress(QWidget* window, const QString& label,
                                 std::function<void()> cancel)
    : m_dialog(new QProgressDialog(label, tr("Cancel"), 0, 0, window))
{
    m_dialog->setObjectName(QLatin1String(OBJECT_NAME));
    m_dialog->setWindowTitle(tr("Opening Camera"));
    m_dialog->setWindowModality(Qt::WindowModal);
    // It closes itself; the caller ends the wait and then this object.
    m_dialog->setAutoClose(false);
    m_dialog->setAutoReset(false);
    connect(m_dialog.data(), &QProgressDialog::canceled, this,
            [this, cancel = std::move(cancel)]() {
                m_cancelled = true;
                if (cancel) {
                    cancel();
                }
            });
    // Shown at once: a quick open only flashes it, and user input waits behind it from the start.
    m_dialog->show();
}

OpeningProgress::~OpeningProgress()
{
    delete m_dialog.data();
}

} // namespace VantoViewer
