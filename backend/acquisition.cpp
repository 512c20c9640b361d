#include "acquisition.h"

#include "deviceparametercollection.h"
#include "framesink.h"
#include "streamchannel.h"
#include "streamcounters.h"

#include <QPointer>

using Plugin::Acquisition::FramePtr;
using Plugin::Acquisition::Statistics;

namespace Backend {

Acquisition::Acquisition(QSharedPointer<DeviceParameterCollection> collection, QObject* parent)
    : IAcquisition(parent), m_collection(std::move(collection)),
      m_channel(m_collection->streamChannel()), m_sink(m_channel->sink()),
      m_counters(m_channel->counters())
{
    qRegisterMetaType<Plugin::Acquisition::FramePtr>();
    qRegisterMetaType<Plugin::Acquisition::IAcquisition::State>();
    m_sink->attach(this, {[this] { onFrameReady(); }, [this] { onEnded(); },
                          [this](const QString& reason) { fail(reason); }});
    connect(m_collection.data(), &ParameterCollection::IParameterCollection::deviceLost, this,
            [this](const QString& message) {
                if (m_state != Idle) {
                    abandon();
                    failToIdle(tr("The camera was lost: %1").arg(message));
                }
            });
}

Acquisition::~Acquisition()
{
    m_sink->detach();
    // The stream closes on the device thread; the channel stays with the camera.
    std::shared_ptr<StreamChannel> channel = std::move(m_channel);
    m_collection->postToDeviceThread([channel = std::move(channel)](DeviceWorker& worker) mutable {
        channel->stop(worker, !worker.isLost());
    });
}

void Acquisition::setState(State state)
{
    if (m_state != state) {
        m_state = state;
        Q_EMIT stateChanged(state);
    }
}

void Acquisition::start(Mode mode)
{
    if (m_state != Idle) {
        return;
    }
    if (m_collection->isLost()) {
        Q_EMIT failed(tr("The camera is lost: %1").arg(m_collection->lostReason()));
        return;
    }
    m_mode = mode;
    m_ended = false;
    setState(Starting);
    const quint64 generation = ++m_generation;
    std::shared_ptr<StreamChannel> channel = m_channel;
    std::shared_ptr<FrameSink> sink = m_sink;
    // The answer comes back through the sink, to whichever acquisition it serves by then: the
    // guard makes sure it is this one.
    const QPointer<Acquisition> self(this);
    m_collection->postToDeviceThread([channel, sink, mode, generation, self](DeviceWorker& worker) {
        QString error;
        const bool ok = channel->start(worker, mode, &error);
        sink->post([self, ok, error, generation] {
            if (self) {
                self->onStarted(generation, ok, error);
            }
        });
    });
}

void Acquisition::onStarted(quint64 generation, bool ok, const QString& error)
{
    if (generation != m_generation || m_state != Starting) {
        return;
    }
    if (ok) {
        setState(Acquiring);
        if (m_ended) {
            stop(); // the single frame came before this answer
        }
    } else {
        failToIdle(tr("The acquisition could not start: %1").arg(error));
    }
}

void Acquisition::stop()
{
    if (m_state == Idle || m_state == Stopping) {
        return;
    }
    finishStop();
}

void Acquisition::finishStop()
{
    setState(Stopping);
    const quint64 generation = ++m_generation;
    std::shared_ptr<StreamChannel> channel = m_channel;
    std::shared_ptr<FrameSink> sink = m_sink;
    const QPointer<Acquisition> self(this);
    m_collection->postToDeviceThread([channel, sink, generation, self](DeviceWorker& worker) {
        channel->stop(worker, true);
        sink->post([self, generation] {
            if (self && generation == self->m_generation) {
                self->setState(Idle);
            }
        });
    });
}

void Acquisition::abandon()
{
    // The device is gone: the stream closes without a word to it, and nothing waits for that.
    ++m_generation;
    std::shared_ptr<StreamChannel> channel = m_channel;
    m_collection->postToDeviceThread(
        [channel](DeviceWorker& worker) { channel->stop(worker, false); });
}

void Acquisition::failToIdle(const QString& reason)
{
    // The reason arrives first, so that whoever sees the state go Idle knows why.
    const bool changed = m_state != Idle;
    m_state = Idle;
    Q_EMIT failed(reason);
    if (changed) {
        Q_EMIT stateChanged(Idle);
    }
}

void Acquisition::onFrameReady()
{
    if (m_state == Idle) {
        return; // a frame that arrived before the stream closed
    }
    Q_EMIT frameReady();
    if (m_mode == SingleFrame) {
        onEnded();
    }
}

void Acquisition::onEnded()
{
    // The device stopped on its own (SingleFrame, MultiFrame): the stream closes too, once
    // the start has been answered.
    m_ended = true;
    if (m_state == Acquiring) {
        stop();
    }
}

void Acquisition::fail(const QString& reason)
{
    if (m_state != Idle) {
        abandon();
    }
    failToIdle(reason);
}

FramePtr Acquisition::latestFrame() const
{
    return m_sink->latest();
}

Statistics Acquisition::statistics() const
{
    Statistics s;
    s.completed = m_counters->completed.load();
    s.incomplete = m_counters->incomplete.load();
    s.underruns = m_counters->underruns.load();
    s.bytes = m_counters->bytes.load();
    return s;
}

int Acquisition::announcedBuffers() const
{
    return m_counters->announcedBuffers.load();
}

} // namespace Backend
