#pragma once

#include <QByteArray>
#include <QDir>
#include <QFile>
#include <QString>

#include <exception>

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

// The text of the exception of type E that f throws, or what happened instead.
template <class E, class F> QString thrownText(F f)
{
    try {
        f();
    } catch (const E& e) {
        return QString::fromUtf8(e.what());
    } catch (const std::exception& e) {
        return QStringLiteral("wrong exception: ") + QString::fromUtf8(e.what());
    }
    return QStringLiteral("nothing thrown");
}
