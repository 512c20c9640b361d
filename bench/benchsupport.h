#pragma once

#include <QByteArray>
#include <QEvent>
#include <QObject>
#include <QString>

// A vendor camera description, read where it lies: NODESCOPE_SHARED_DIR when set, else the
// folder the build was configured with. Never copied into the tree.
inline QString sharedGenICamFile(const QString& fileName)
{
    const QString shared = QString::fromUtf8(qgetenv("NODESCOPE_SHARED_DIR"));
    return (shared.isEmpty() ? QStringLiteral(NODESCOPE_DEFAULT_SHARED_DIR) : shared) +
           QStringLiteral("/genicam/") + fileName;
}

// Notes when the widget it watches has painted.
class PaintWatcher : public QObject {
public:
    bool painted = false;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override
    {
        if (event->type() == QEvent::Paint) {
            painted = true;
        }
        return QObject::eventFilter(watched, event);
    }
};
