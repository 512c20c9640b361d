#pragma once

#include <QStringList>
#include <QtGlobal>

namespace Backend {

class SimulatedDevice;

// The power-on state of a simulated vendor description, the one it streams from.
//
// A description served from memory starts with every register zero: its Width and Height read
// 0, its PixelFormat and AcquisitionMode name no entry, and where the description keeps
// "implemented" and "available" flags in registers, those say the features are absent. A real
// camera powers on with a sensor; the simulated one powers on with this one:
//
// - the image features (SensorWidth, SensorHeight, WidthMax, HeightMax, Width, Height,
//   PixelFormat, AcquisitionMode, TestPattern) are made implemented and available, and so are
//   the entries chosen below, by setting to 1 the flag registers that read 0;
// - a size below 1 becomes the simulated sensor, WIDTH x HEIGHT, and so does a maximum
//   (pMax) below it;
// - a PixelFormat that names no entry simulated cameras make becomes the first entry that
//   they make, in the description's order;
// - an AcquisitionMode that names no available entry becomes Continuous;
// - a TestPattern that simulated cameras don't make becomes Off.
//
// Values that are already valid stay as they are; a value the description computes (a
// formula, a constant) stays as computed. Only the memory of a SimulatedDevice is written,
// through the description's own nodes, so a real camera is never touched.
class SimulatedSensor {
public:
    static constexpr qint64 WIDTH = 1280;
    static constexpr qint64 HEIGHT = 1024;

    // Device thread, at attach, before anything reads the features. Returns one line per
    // value set ("Width = 1280"), for the log.
    static QStringList powerOn(SimulatedDevice& device);
};

} // namespace Backend
