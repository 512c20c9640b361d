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

// A GenICam description around `body`, for the shapes that are too big to keep as files.
inline QByteArray describedAs(const QByteArray& body)
{
    return QByteArrayLiteral(
               "<?xml version=\"1.0\" encoding=\"utf-8\"?>\n"
               "<RegisterDescription ModelName=\"Generated\" VendorName=\"Vanto\" "
               "StandardNameSpace=\"None\" SchemaMajorVersion=\"1\" SchemaMinorVersion=\"1\" "
               "SchemaSubMinorVersion=\"0\" MajorVersion=\"1\" MinorVersion=\"0\" "
               "SubMinorVersion=\"0\" ProductGuid=\"0c3b9e5d-61a8-4f27-b0d4-8e2a7f1c5b90\" "
               "VersionGuid=\"7e41d2a6-9b3c-4a05-8f6e-2d1c0b9a8e73\" "
               "xmlns=\"http://www.genicam.org/GenApi/Version_1_1\">\n") +
           body + QByteArrayLiteral("<Port Name=\"Device\"/>\n</RegisterDescription>\n");
}
