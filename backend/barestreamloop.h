#pragma once

#include <QString>
#include <QtGlobal>

typedef struct _ArvDevice ArvDevice;
typedef struct _ArvGc ArvGc;
typedef struct _ArvStream ArvStream;

namespace Backend {

// The reference loop for benchmarks: Aravis's own stream on a GigE Vision camera with nothing
// of ours in between (stream, pop, push back, nothing else). What our stream is measured
// against, so it stays this bare: no pool, no frame, no signal, no thread of its own.
//
// One thread: the one that made it.
class BareStreamLoop {
public:
    struct Result {
        quint64 completed = 0; // buffers that arrived whole
        quint64 failed = 0;    // buffers that did not, and the stream's underruns
        double seconds = 0;    // how long the loop ran
    };

    // Opens the camera at `deviceAddress` through the interface at `interfaceAddress`
    // (IPv4 addresses); isOpen() tells whether it answered.
    BareStreamLoop(const QString& interfaceAddress, const QString& deviceAddress);
    ~BareStreamLoop();
    BareStreamLoop(const BareStreamLoop&) = delete;
    BareStreamLoop& operator=(const BareStreamLoop&) = delete;

    bool isOpen() const { return m_device != nullptr; }

    // size x size Mono8 without offsets, at the highest frame rate the camera allows, through
    // the camera's own features; what a feature refuses stays as it was. For any description,
    // so that a benchmark sets our stream's camera up the same way.
    static void configureMono8(ArvGc* genicam, int size);
    void configureMono8(int size);

    // Creates the stream with `buffers` buffers of PayloadSize and starts the acquisition;
    // false when there is no stream.
    bool start(int buffers = 10);
    // Pops and pushes back for `seconds`, counting.
    Result run(double seconds);
    // Stops the acquisition and drops the stream.
    void stop();

private:
    ArvDevice* m_device = nullptr; // owned reference
    ArvStream* m_stream = nullptr; // owned reference
};

} // namespace Backend
