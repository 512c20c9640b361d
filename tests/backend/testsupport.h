#pragma once

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

// arv-fake-gv-camera-0.8 on 127.0.0.1, killed by its PID when this goes. It runs only inside a
// private network namespace (run-in-netns.sh), so nothing it sends leaves the machine.
class FakeGigECamera {
public:
    FakeGigECamera() = default;
    FakeGigECamera(const FakeGigECamera&) = delete;
    FakeGigECamera& operator=(const FakeGigECamera&) = delete;
    ~FakeGigECamera() { kill(); }

    // Why it can't run here, or empty.
    static QString unavailableReason()
    {
        if (qgetenv("NODESCOPE_IN_NETNS") != "1") {
            return QStringLiteral(
                "needs a private network namespace (run through run-in-netns.sh)");
        }
        if (QStandardPaths::findExecutable(QStringLiteral("arv-fake-gv-camera-0.8")).isEmpty()) {
            return QStringLiteral("arv-fake-gv-camera-0.8 is not installed");
        }
        return QString();
    }

    // Starts it and opens it in `pool` once it answers; null when it never did.
    QSharedPointer<Backend::CameraInfo> startAndOpen(Backend::CameraPool& pool)
    {
        m_process.setProcessChannelMode(QProcess::ForwardedErrorChannel);
        m_process.start(QStandardPaths::findExecutable(QStringLiteral("arv-fake-gv-camera-0.8")),
                        {QStringLiteral("-i"), QStringLiteral("127.0.0.1")});
        if (!m_process.waitForStarted()) {
            return nullptr;
        }
        m_pid = m_process.processId();
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

    // Kills it at once, as a camera that loses power.
    void kill()
    {
        if (m_pid > 0 && m_process.state() != QProcess::NotRunning) {
            ::kill(pid_t(m_pid), SIGKILL);
            m_process.waitForFinished(5000);
        }
    }
    bool hasFinished() const { return m_process.state() == QProcess::NotRunning; }

private:
    QProcess m_process;
    qint64 m_pid = 0;
};
