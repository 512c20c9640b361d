#pragma once

#include "../fakegigecamera.h"

#include <camerapool.h>

#include <parametercollection/exception.h>

#include <QByteArray>
#include <QDir>
#include <QDirIterator>
#include <QElapsedTimer>
#include <QFile>
#include <QFileInfo>
#include <QProcess>
#include <QStandardPaths>
#include <QString>
#include <QTest>

#include <csignal>
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

// A data column "file" with a row per vendor description in ../shared/genicam, or one row with
// no file when there are none (the test skips it).
inline void addVendorDescriptionRows()
{
    QTest::addColumn<QString>("file");
    QDirIterator it(sharedGenICamDir(), {QStringLiteral("*.xml")}, QDir::Files);
    bool any = false;
    while (it.hasNext()) {
        const QString file = it.next();
        QTest::newRow(qPrintable(QFileInfo(file).fileName())) << file;
        any = true;
    }
    if (!any) {
        QTest::newRow("absent") << QString();
    }
}

// Opens the fake camera (tests/fakegigecamera.h), once started, in `pool` as soon as it
// answers; null when it never did.
inline QSharedPointer<Backend::CameraInfo> openFakeGigECamera(Backend::CameraPool& pool)
{
    QSharedPointer<Backend::CameraInfo> info;
    // The fake camera needs a moment to bind its socket.
    QElapsedTimer waited;
    waited.start();
    while (!info && waited.elapsed() < 10000) {
        try {
            info = pool.openDevice(QStringLiteral("127.0.0.1"));
        } catch (const ParameterCollection::Exception&) {
            QTest::qWait(100);
        }
    }
    return info;
}
