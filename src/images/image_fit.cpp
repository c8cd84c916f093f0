#include "images/image_fit.h"

#include <cstdint>
#include <limits>

#include "config/settings.h"
#include "core/record/globals.h"
#include "images/quality_search.h"
#include "logging/error_pair.h"
#include "logging/trap.h"
#include "platform/machine/file_system.h"
#include "platform/run_time_error.h"
#include "platform/services.h"
#include "validation/text/conversions.h"

namespace orv {
namespace {

constexpr const char* kLabel = "[ PF_ResizeImePic ] ";

std::int32_t product(std::int32_t a, std::int32_t b) {
    const std::int64_t whole = std::int64_t{a} * b;
    if (whole > std::numeric_limits<std::int32_t>::max()) {
        throw RunTimeError(Failure::Overflow);
    }
    return static_cast<std::int32_t>(whole);
}

/// Returns the length of the other side when a side of `from` pixels becomes `to`.
std::int16_t followingSide(std::int32_t side, std::int32_t from, std::int32_t to) {
    return toInteger(static_cast<double>(product(to, side)) / from);
}

/// An image that will be reduced need not be decoded at full size.
void scaleTo(ImageControl& image, std::int16_t width, std::int16_t height) {
    image.load(gImgSrcFile, {width, height});
    image.size(width, height);
    image.save(gImgDstFile, image.infoFormat(), image.infoBits(), kBestQuality);
}

bool fit(ImageControl& image, bool& changed) {
    const std::int32_t limitHeight = toLong(com().IniImgH());
    const std::int32_t limitWidth = toLong(com().IniImgW());
    // A missing file and an invalid setting are the same failure.
    if (!services().fileSystem->exists(gImgSrcFile) || limitHeight < 1 || limitWidth < 1) {
        return fail(std::string(kLabel) + "において、システム設定値が不正です。", "IMGERR:02");
    }
    image.getFileInfo(gImgSrcFile);
    const std::int32_t height = image.infoHeight();
    const std::int32_t width = image.infoWidth();
    const double rateHeight = static_cast<double>(height) / limitHeight;
    const double rateWidth = static_cast<double>(width) / limitWidth;
    changed = rateHeight > 1 || rateWidth > 1;
    if (!changed) {
        image.load(gImgSrcFile);
        services().fileSystem->copy(gImgSrcFile, gImgDstFile);
    } else if (rateHeight <= rateWidth) {
        scaleTo(image, toInteger(limitWidth), followingSide(height, width, limitWidth));
    } else {
        scaleTo(image, followingSide(width, height, limitHeight), toInteger(limitHeight));
    }
    image.setAutoRepaint(true);
    image.setAutoScroll(true);
    return true;
}

}  // namespace

bool bas_Image::PF_ResizeImePic(ImageControl& image, bool& changed) {
    return trapped(kLabel, [&] { return fit(image, changed); });
}

}  // namespace orv
