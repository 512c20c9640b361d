#pragma once

#include <QString>
#include <QTextStream>

namespace Plugin {
namespace Acquisition {
class IAcquisition;
} // namespace Acquisition
} // namespace Plugin

namespace VantoViewer {

// `vantoviewer --grab N [--save-image FILE]`: acquires N frames from an open camera and prints
// "grabbed N frames in T ms (F fps), incomplete X, underruns Y", then saves the last frame as
// the window's Save Image does (ImageWriter, the format by the file's suffix). Fails, saying
// why, when the acquisition can't start, stops early, or the frames stop coming before N
// arrived.
class GrabCommand {
public:
    static constexpr int EXIT_OK = 0;
    static constexpr int EXIT_FAILED = 1;
    // The longest wait for the next frame (or for the first, or for the stop) before giving up.
    static constexpr int FRAME_TIMEOUT_MS = 10000;

    GrabCommand(QTextStream& out, QTextStream& err) : m_out(out), m_err(err) {}
    void setFrameTimeout(int ms) { m_frameTimeoutMs = ms; }

    // Returns the process's exit status.
    int run(Plugin::Acquisition::IAcquisition& acquisition, int count,
            const QString& saveImage = QString());

private:
    QTextStream& m_out;
    QTextStream& m_err;
    int m_frameTimeoutMs = FRAME_TIMEOUT_MS;
};

} // namespace VantoViewer
