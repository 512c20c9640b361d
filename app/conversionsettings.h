#pragma once

namespace ParameterCollection {
class IParameterCollection;
} // namespace ParameterCollection

namespace VantoViewer {

// What the display conversion does, as @ImageFormatConverter sets it.
struct ConversionSettings {
    enum OutputFormat {
        // Every frame as grey levels; colour frames as their luminance.
        Mono8,
        // Colour frames in colour. Monochrome frames stay grey (8 bits per pixel): an RGB copy
        // of them would look the same at three times the memory.
        RGB8,
    };

    OutputFormat outputFormat = RGB8;
    // Applied to every displayed value normalised to 0..1: out = in ^ gamma. 1 leaves the
    // values as they are; below 1 brightens the dark tones.
    double gamma = 1.0;

    bool operator==(const ConversionSettings& other) const
    {
        return outputFormat == other.outputFormat && gamma == other.gamma;
    }
    bool operator!=(const ConversionSettings& other) const { return !(*this == other); }

    // The settings of a camera's @ImageFormatConverter node map. A feature that can't be read
    // keeps its default, which is also the node map's own start value.
    static ConversionSettings fromCollection(ParameterCollection::IParameterCollection& collection);
};

} // namespace VantoViewer
