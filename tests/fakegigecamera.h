#pragma once

#include <QProcess>
#include <QStandardPaths>
#include <QString>

#include <csignal>

// Aravis's fake GigE Vision camera on 127.0.0.1, for the tests that run inside a private
// network namespace (run-in-netns.sh). Stopped by its PID when it goes.
class FakeGigECamera {
public:
    FakeGigECamera() { m_process.setProcessChannelMode(QProcess::ForwardedErrorChannel); }
    ~FakeGigECamera() { kill(); }
    FakeGigECamera(const FakeGigECamera&) = delete;
    FakeGigECamera& operator=(const FakeGigECamera&) = delete;

    // Empty once the camera runs; else why the test has to skip it.
    QString start()
    {
        if (qgetenv("NODESCOPE_IN_NETNS") != "1") {
            return QStringLiteral("needs a private network namespace (run through "
                                  "run-in-netns.sh)");
        }
        const QString fake =
            QStandardPaths::findExecutable(QStringLiteral("arv-fake-gv-camera-0.8"));
        if (fake.isEmpty()) {
            return QStringLiteral("arv-fake-gv-camera-0.8 is not installed");
        }
        m_process.start(fake, {QStringLiteral("-i"), QStringLiteral("127.0.0.1")});
        if (!m_process.waitForStarted()) {
            return m_process.errorString();
        }
        m_pid = m_process.processId();
        return QString();
    }

    // Kills the camera, as if its cable were pulled; true once it has ended.
    bool kill()
    {
        if (m_pid > 0 && m_process.state() != QProcess::NotRunning) {
            ::kill(pid_t(m_pid), SIGKILL);
            return m_process.waitForFinished(5000);
        }
        return true;
    }

private:
    QProcess m_process;
    qint64 m_pid = 0;
};
