#pragma once

#include <QByteArray>
#include <QString>

// A vendor camera description, read where it lies: NODESCOPE_SHARED_DIR when set, else the
// folder the build was configured with. Never copied into the tree.
inline QString sharedGenICamFile(const QString& fileName)
{
    const QString shared = QString::fromUtf8(qgetenv("NODESCOPE_SHARED_DIR"));
    return (shared.isEmpty() ? QStringLiteral(NODESCOPE_DEFAULT_SHARED_DIR) : shared) +
           QStringLiteral("/genicam/") + fileName;
}
