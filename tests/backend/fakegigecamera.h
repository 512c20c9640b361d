#pragma once

#include <camerapool.h>

#include <parametercollection/exception.h>

#include <QElapsedTimer>
#include <QProcess>
#include <QStandardPaths>
#include <QtTest>

#include <csignal>

// Aravis's fake GigE camera on 127.0.0.1, for the tests that run inside a private network
// namespace. Stopped by its PID when the object goes.
class FakeGigECamera {
public:
    FakeGigECamera() { m_process.setProcessChannelMode(QProcess::ForwardedErrorChannel); }
    ~FakeGigECamera()
    {
        if (m_process.state() != QProcess::NotRunning) {
            kill();
            m_process.waitForFinished(5000);
        }
    }

    // Why the test can't run here, or empty when it can.
    static QString unavailable()
    {
        if (qgetenv("NODESCOPE_IN_NETNS") != "1") {
            return QStringLiteral("needs a private network namespace (run through "
                                  "run-in-netns.sh)");
        }
        if (QStandardPaths::findExecutable(QStringLiteral("arv-fake-gv-camera-0.8")).isEmpty()) {
            return QStringLiteral("arv-fake-gv-camera-0.8 is not installed");
        }
        return QString();
    }

    // Starts the camera; the error text, or empty.
    QString start()
    {
        m_process.start(QStandardPaths::findExecutable(QStringLiteral("arv-fake-gv-camera-0.8")),
                        {QStringLiteral("-i"), QStringLiteral("127.0.0.1")});
        if (!m_process.waitForStarted()) {
            return m_process.errorString();
        }
        m_pid = m_process.processId();
        return QString();
    }

    // Opens it through `pool`, giving it a moment to bind its socket; null when it never
    // answers.
    static QSharedPointer<Backend::CameraInfo> open(Backend::CameraPool& pool)
    {
        QSharedPointer<Backend::CameraInfo> info;
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

    void kill() { ::kill(pid_t(m_pid), SIGKILL); }
    bool waitForFinished(int ms) { return m_process.waitForFinished(ms); }

private:
    QProcess m_process;
    qint64 m_pid = 0;
};
