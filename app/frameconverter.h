#pragma once

#include "conversionsettings.h"
#include "histogram.h"

#include <acquisition/frame.h>

#include <QImage>
#include <QObject>
#include <QString>

#include <condition_variable>
#include <mutex>
#include <thread>

namespace VantoViewer {

// Converts frames for the screen on a thread of its own, one frame at a time. The newest frame
// wins: one submitted while another converts replaces the one waiting, and the next conversion
// starts only once the last result reached this object's thread, so a slow display drops
// frames for itself and never queues them up.
class FrameConverter : public QObject {
    Q_OBJECT

public:
    explicit FrameConverter(QObject* parent = nullptr);
    ~FrameConverter() override;

    // Takes effect from the next frame the worker picks up.
    void setSettings(const ConversionSettings& settings);
    ConversionSettings settings() const;
    // Never blocks on a conversion.
    void submit(const Plugin::Acquisition::FramePtr& frame);

    // Synchronous, on the caller's thread: QImage::Format_Grayscale8 or Format_RGB888; a null
    // image and `error` set when the frame can't be shown.
    static QImage convert(const Plugin::Acquisition::Frame& frame,
                          const ConversionSettings& settings, QString* error);

Q_SIGNALS:
    void converted(const Plugin::Acquisition::FramePtr& frame, const QImage& image,
                   const VantoViewer::Histogram& histogram);
    void failed(const Plugin::Acquisition::FramePtr& frame, const QString& message);

private:
    void run();
    void deliver(const Plugin::Acquisition::FramePtr& frame, const QImage& image,
                 const Histogram& histogram, const QString& error);

    mutable std::mutex m_mutex;
    std::condition_variable m_wake;
    Plugin::Acquisition::FramePtr m_pending;
    ConversionSettings m_settings;
    // A result is on its way to this object's thread.
    bool m_delivering = false;
    bool m_stopping = false;
    std::thread m_worker;
};

} // namespace VantoViewer
