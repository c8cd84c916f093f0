#include "adapters/jpeg/jpeg_image.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace orv {
namespace {

using Rgb = std::array<unsigned, 3>;

unsigned channel(float value) { return static_cast<unsigned>(std::clamp(value + 0.5F, 0.0F, 255.0F)); }

/// The constants are those of the JPEG file interchange format.
Rgb fromLuminance(const std::uint8_t* sample) {
    const float light = sample[0];
    const float blue = static_cast<float>(sample[1]) - 128;
    const float red = static_cast<float>(sample[2]) - 128;
    return {channel(light + 1.402F * red), channel(light - 0.344136F * blue - 0.714136F * red),
            channel(light + 1.772F * blue)};
}

/// 255 means no ink, also for `black`.
Rgb onPaper(const Rgb& ink, unsigned black) {
    const auto mixed = [black](unsigned colour) { return (colour * black + 127) / 255; };
    return {mixed(ink[0]), mixed(ink[1]), mixed(ink[2])};
}

Rgb toRgb(const JpegImage& image, const std::uint8_t* sample) {
    const auto ink = [&image](unsigned value) { return image.adobe ? value : 255 - value; };
    switch (image.colours) {
        case JCS_GRAYSCALE:
            return {sample[0], sample[0], sample[0]};
        case JCS_CMYK:
            return onPaper({ink(sample[0]), ink(sample[1]), ink(sample[2])}, ink(sample[3]));
        case JCS_YCCK: {
            // The luminance represents the ink, but inverted relative to black.
            const Rgb inverse = fromLuminance(sample);
            return onPaper({ink(255 - inverse[0]), ink(255 - inverse[1]), ink(255 - inverse[2])}, ink(sample[3]));
        }
        default:
            return fromLuminance(sample);
    }
}

}  // namespace

Pixels toArgb(const JpegImage& image) {
    const Bitmap& bitmap = image.bitmap;
    Pixels pixels{bitmap.width, bitmap.height, {}};
    pixels.argb.reserve(bitmap.samples.size() / bitmap.channels);
    for (std::size_t at = 0; at < bitmap.samples.size(); at += bitmap.channels) {
        const Rgb rgb = toRgb(image, &bitmap.samples[at]);
        pixels.argb.push_back(0xFF000000U | rgb[0] << 16 | rgb[1] << 8 | rgb[2]);
    }
    return pixels;
}

}  // namespace orv
