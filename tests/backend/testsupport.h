#pragma once

#include <QByteArray>
#include <QDir>
#include <QFile>
#include <QString>

// Test data lives in the source tree; CTest tells where.
inline QString testDataPath(const QString& name)
{
    const QByteArray root = qgetenv("NODESCOPE_SOURCE_DIR");
    return QDir(QString::fromUtf8(root)).filePath(QStringLiteral("tests/backend/data/") + name);
}

inline QByteArray testData(const QString& name)
{
    QFile file(testDataPath(name));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

inline QString sharedGenICamDir()
{
    return QString::fromUtf8(qgetenv("NODESCOPE_SHARED_DIR")) + QStringLiteral("/genicam");
}
