#pragma once

#include <acquisition/frame.h>

#include <QObject>
#include <QString>

namespace Plugin {
namespace Acquisition {

// What the stream of one camera has counted since the last reset. Every frame the stream
// received is counted here, whether or not a consumer took it.
struct Statistics {
    quint64 completed = 0;  // frames received whole
    quint64 incomplete = 0; // frames received with parts missing, or failed
    quint64 underruns = 0;  // frames the device sent while no buffer was free
    quint64 bytes = 0;      // payload bytes of the frames counted above
};

// The acquisition of one open camera. Lives on the GUI thread and never waits there: device
// I/O runs on the camera's device thread, and frames arrive on the stream's thread.
class IAcquisition : public QObject {
    Q_OBJECT
public:
    enum Mode {
        Continuous,  // until stop()
        SingleFrame, // one frame, then the acquisition stops on its own
    };
    Q_ENUM(Mode)
    enum State {
        Idle,
        Starting,
        Acquiring,
        Stopping,
    };
    // Known to the meta-type system, so that stateChanged can be queued and spied on.
    Q_ENUM(State)

    using QObject::QObject;
    ~IAcquisition() override = default;

    // Both are deliberate user actions: they write AcquisitionMode (where the camera has it)
    // and execute AcquisitionStart or AcquisitionStop. A start while acquiring, or a stop
    // while idle, does nothing. Failures arrive through failed().
    virtual void start(Mode mode) = 0;
    virtual void stop() = 0;
    virtual State state() const = 0;

    // The newest frame received, or null before the first one. Never blocks. A consumer
    // slower than the stream takes this on frameReady() and so skips frames, while
    // statistics() still counts each of them.
    virtual FramePtr latestFrame() const = 0;
    virtual Statistics statistics() const = 0;

Q_SIGNALS:
    void stateChanged(Plugin::Acquisition::IAcquisition::State state);
    // A new frame is there. Coalesced: while one notification waits in the GUI thread's
    // queue, newer frames do not queue another.
    void frameReady();
    // Starting or acquiring failed, or the device was lost while acquiring; the state is
    // Idle afterwards. `message` says why.
    void failed(const QString& message);
};

} // namespace Acquisition
} // namespace Plugin
