#pragma once

#include <acquisition/iacquisition.h>
#include <acquisition/iacquisitionservice.h>

#include <QByteArray>
#include <QHash>
#include <QList>

#include <memory>

// A frame whose bytes the frame itself keeps alive.
inline Plugin::Acquisition::FramePtr syntheticFrame(quint32 pixelFormat, quint32 width,
                                                    quint32 height, const QByteArray& bytes,
                                                    quint64 frameId = 1)
{
    using Plugin::Acquisition::Frame;
    const auto storage = std::make_shared<const QByteArray>(bytes);
    return std::make_shared<const Frame>(
        width, height, pixelFormat, reinterpret_cast<const uchar*>(storage->constData()),
        std::size_t(storage->size()), frameId, frameId * 1000, Frame::Complete, storage);
}

// Frames made by the test, through the SDK's acquisition interface: what a stream would hand
// the window, without a device. start() and stop() only record the request and change state.
// No Q_OBJECT: it adds no signals, and the tests' helper headers are not run through moc.
class SyntheticAcquisition : public Plugin::Acquisition::IAcquisition {
public:
    using IAcquisition::IAcquisition;

    void start(Mode mode) override
    {
        starts.append(mode);
        setState(Acquiring);
    }
    void stop() override
    {
        ++stops;
        setState(Idle);
    }
    State state() const override { return m_state; }
    Plugin::Acquisition::FramePtr latestFrame() const override { return m_latest; }
    Plugin::Acquisition::Statistics statistics() const override { return m_statistics; }

    // Counts the frame as the stream would, and tells the consumers while acquiring.
    void deliver(const Plugin::Acquisition::FramePtr& frame)
    {
        m_latest = frame;
        if (frame->isComplete()) {
            ++m_statistics.completed;
        } else {
            ++m_statistics.incomplete;
        }
        m_statistics.bytes += frame->size();
        Q_EMIT frameReady();
    }
    void setState(State state)
    {
        if (state != m_state) {
            m_state = state;
            Q_EMIT stateChanged(state);
        }
    }

    QList<Mode> starts;
    int stops = 0;

private:
    State m_state = Idle;
    Plugin::Acquisition::FramePtr m_latest;
    Plugin::Acquisition::Statistics m_statistics;
};

// Hands out the acquisitions the test registered, per camera.
class SyntheticAcquisitionService : public Plugin::Acquisition::IAcquisitionService {
public:
    using IAcquisitionService::IAcquisitionService;

    Plugin::Acquisition::IAcquisition*
    getAcquisition(const QSharedPointer<Plugin::CameraPool::IBaseInfo>& info) const override
    {
        return acquisitions.value(info.data());
    }

    QHash<Plugin::CameraPool::IBaseInfo*, Plugin::Acquisition::IAcquisition*> acquisitions;
};
