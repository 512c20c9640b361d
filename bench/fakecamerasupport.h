#pragma once

#include <camerapool.h>
#include <parametercollection/exception.h>

#include <QEventLoop>
#include <QSharedPointer>
#include <QTimer>

// Lets the event loop run for `ms`: queued frames and notifications arrive meanwhile.
inline void turnEventLoop(int ms)
{
    QEventLoop loop;
    QTimer::singleShot(ms, &loop, &QEventLoop::quit);
    loop.exec();
}

// The fake GigE camera on 127.0.0.1 opened in `pool` once it answers (it needs a moment to
// bind its socket); null when it never did within 5 s.
inline QSharedPointer<Backend::CameraInfo> openFakeCamera(Backend::CameraPool& pool)
{
    for (int attempt = 0; attempt < 50; ++attempt) {
        try {
            return pool.openDevice(QStringLiteral("127.0.0.1"));
        } catch (const ParameterCollection::Exception&) {
            turnEventLoop(100);
        }
    }
    return nullptr;
}
