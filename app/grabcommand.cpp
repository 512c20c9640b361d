#include "grabcommand.h"

#include "imagewriter.h"

#include <acquisition/iacquisition.h>

#include <QElapsedTimer>
#include <QEventLoop>
#include <QTimer>

using Plugin::Acquisition::FramePtr;
using Plugin::Acquisition::IAcquisition;

namespace VantoViewer {

int GrabCommand::run(IAcquisition& acquisition, int count, const QString& saveImage)
{
    QEventLoop loop;
    QElapsedTimer clock;
    QTimer watchdog;
    watchdog.setSingleShot(true);
    watchdog.setInterval(m_frameTimeoutMs);
    quint64 received = 0;
    qint64 elapsedMs = 0;
    bool done = false;
    QString failure;
    FramePtr last;

    const auto frames = [&acquisition] {
        const auto stats = acquisition.statistics();
        return stats.completed + stats.incomplete;
    };
    QObject::connect(&watchdog, &QTimer::timeout, &loop, [&] {
        failure = done ? QStringLiteral("the camera did not stop within %1 s")
                             .arg(m_frameTimeoutMs / 1000.0)
                       : QStringLiteral("no frame came for %1 s").arg(m_frameTimeoutMs / 1000.0);
        loop.quit();
    });
    QObject::connect(&acquisition, &IAcquisition::frameReady, &loop, [&] {
        if (done) {
            return;
        }
        watchdog.start();
        received = frames();
        if (received >= quint64(count)) {
            done = true;
            elapsedMs = clock.elapsed();
            last = acquisition.latestFrame();
            acquisition.stop();
        }
    });
    QObject::connect(&acquisition, &IAcquisition::stateChanged, &loop,
                     [&](IAcquisition::State state) {
                         if (state != IAcquisition::Idle) {
                             return;
                         }
                         if (!done && failure.isEmpty()) {
                             failure = QStringLiteral("the acquisition stopped");
                         }
                         loop.quit();
                     });
    QObject::connect(&acquisition, &IAcquisition::failed, &loop, [&](const QString& message) {
        if (failure.isEmpty()) {
            failure = message;
        }
        loop.quit();
    });

    clock.start();
    watchdog.start();
    acquisition.start(IAcquisition::Continuous);
    if (failure.isEmpty() && acquisition.state() != IAcquisition::Idle) {
        loop.exec();
    }
    if (acquisition.state() != IAcquisition::Idle) {
        acquisition.stop();
    }
    const auto stats = acquisition.statistics();
    if (!failure.isEmpty() && !done) {
        m_err << "vantoviewer: grabbed " << frames() << " of " << count << " frames: " << failure
              << "\n";
        m_err.flush();
        return EXIT_FAILED;
    }
    const double seconds = qMax<qint64>(elapsedMs, 1) / 1000.0;
    m_out << "grabbed " << received << " frames in " << elapsedMs << " ms ("
          << QString::number(double(received) / seconds, 'f', 1) << " fps), incomplete "
          << stats.incomplete << ", underruns " << stats.underruns << "\n";
    m_out.flush();
    if (!failure.isEmpty()) {
        m_err << "vantoviewer: " << failure << "\n";
    }
    if (!saveImage.isEmpty()) {
        QString error;
        if (!last) {
            error = QStringLiteral("no frame was kept");
        }
        // The command line checked the suffix before the camera was touched.
        ImageWriter::Format format = ImageWriter::Png;
        ImageWriter::formatOf(saveImage, &format);
        if (!last || !ImageWriter::write(*last, saveImage, format, &error)) {
            m_err << "vantoviewer: cannot save " << saveImage << ": " << error << "\n";
            m_err.flush();
            return EXIT_FAILED;
        }
    }
    m_err.flush();
    return EXIT_OK;
}

} // namespace VantoViewer
