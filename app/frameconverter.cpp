#include "frameconverter.h"

#include "conversionengine.h"

#include <QMetaObject>

namespace VantoViewer {

using Plugin::Acquisition::Frame;
using Plugin::Acquisition::FramePtr;

FrameConverter::FrameConverter(QObject* parent) : QObject(parent)
{
    qRegisterMetaType<FramePtr>();
    qRegisterMetaType<Histogram>();
    m_worker = std::thread([this] { run(); });
}

FrameConverter::~FrameConverter()
{
    {
        std::lock_guard<std::mutex> lock(m_mutex);
        m_stopping = true;
        m_pending.reset();
    }
    m_wake.notify_all();
    m_worker.join();
}

void FrameConverter::setSettings(const ConversionSettings& settings)
{
    std::lock_guard<std::mutex> lock(m_mutex);
    m_settings = settings;
}

ConversionSettings FrameConverter::settings() const
{
    std::lock_guard<std::mutex> lock(m_mutex);
    return m_settings;
}

void FrameConverter::submit(const FramePtr& frame)
{
    if (!frame) {
        return;
    }
    {
        std::lock_guard<std::mutex> lock(m_mutex);
        m_pending = frame;
    }
    m_wake.notify_one();
}

QImage FrameConverter::convert(const Frame& frame, const ConversionSettings& settings,
                               QString* error)
{
    ConversionEngine engine;
    return engine.convert(frame, settings, error);
}

void FrameConverter::run()
{
    // The engine lives on this thread, keeping its contexts and buffers from frame to frame.
    ConversionEngine engine;
    for (;;) {
        FramePtr frame;
        ConversionSettings settings;
        {
            std::unique_lock<std::mutex> lock(m_mutex);
            m_wake.wait(lock, [this] { return m_stopping || (m_pending && !m_delivering); });
            if (m_stopping) {
                return;
            }
            frame = std::move(m_pending);
            m_pending.reset();
            settings = m_settings;
            m_delivering = true;
        }
        QString error;
        const QImage image = engine.convert(*frame, settings, &error);
        const Histogram histogram = image.isNull() ? Histogram() : Histogram::compute(*frame);
        // Queued to this object's thread; dropped with the object if it is gone by then.
        QMetaObject::invokeMethod(
            this,
            [this, frame, image, histogram, error] { deliver(frame, image, histogram, error); },
            Qt::QueuedConnection);
    }
}

void FrameConverter::deliver(const FramePtr& frame, const QImage& image, const Histogram& histogram,
                             const QString& error)
{
    {
        std::lock_guard<std::mutex> lock(m_mutex);
        m_delivering = false;
    }
    m_wake.notify_one();
    if (image.isNull()) {
        Q_EMIT failed(frame, error);
    } else {
        Q_EMIT converted(frame, image, histogram);
    }
}

} // namespace VantoViewer
