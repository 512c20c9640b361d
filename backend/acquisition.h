#pragma once

#include <acquisition/iacquisition.h>

#include <QSharedPointer>

#include <memory>

namespace Backend {

class DeviceParameterCollection;
class FrameSink;
class StreamChannel;
struct StreamCounters;

// The acquisition of one open camera. Lives on the GUI thread and never waits there: the
// start and stop sequences run on the camera's device thread, frames arrive on the stream's
// thread and wait in a FrameSink, and the statistics are counters that anyone may read.
class Acquisition : public Plugin::Acquisition::IAcquisition {
    Q_OBJECT
public:
    // `collection` has its stream channel (CameraPool gives every camera one).
    explicit Acquisition(QSharedPointer<DeviceParameterCollection> collection,
                         QObject* parent = nullptr);
    ~Acquisition() override;

    void start(Mode mode) override;
    void stop() override;
    State state() const override { return m_state; }
    Plugin::Acquisition::FramePtr latestFrame() const override;
    Plugin::Acquisition::Statistics statistics() const override;

    // Buffers announced to the open stream; 0 while it is closed.
    int announcedBuffers() const;

private:
    void setState(State state);
    void onStarted(quint64 generation, bool ok, const QString& error);
    void onFrameReady();
    void onEnded();
    void fail(const QString& reason);
    void finishStop();
    void abandon();
    void failToIdle(const QString& reason);

    QSharedPointer<DeviceParameterCollection> m_collection;
    std::shared_ptr<StreamChannel> m_channel; // the camera's, made as it opened
    std::shared_ptr<FrameSink> m_sink;
    std::shared_ptr<StreamCounters> m_counters;
    State m_state = Idle;
    Mode m_mode = Continuous;
    bool m_ended = false; // the device stopped on its own since the last start
    // Answers from the device thread to an earlier start or stop are ignored.
    quint64 m_generation = 0;
};

} // namespace Backend
