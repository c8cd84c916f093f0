#include "images/image_fit.h"

#include <cstdint>
#include <limits>
#include <memory>
#include <utility>

#include "config/settings.h"
#include "core/record/globals.h"
#include "images/file_size_text.h"
#include "images/frm_img_common.h"
#include "logging/trap.h"
#include "platform/forms/form_host.h"
#include "platform/machine/file_system.h"
#include "platform/machine/window_system.h"
#include "platform/run_time_error.h"
#include "platform/scope.h"
#include "platform/services.h"
#include "validation/text/conversions.h"

namespace orv {
namespace {

/// Writes the working file repeatedly, each time from the same pixels.
class Saver {
public:
    explicit Saver(ImageControl& image) : image_(image), format_(image.infoFormat()), bits_(image.infoBits()) {}

    void save(int factor) const { image_.save(gImgDstFile, format_, bits_, factor); }
    /// Writes the file and returns its size in bytes.
    std::int32_t measured(int factor) const {
        save(factor);
        image_.getFileInfo(gImgDstFile);
        return image_.infoSizeDisk();
    }

private:
    ImageControl& image_;
    std::int32_t format_;
    std::int32_t bits_;
};

/// Returns the smallest factor at which the file fits. The size falls as the factor rises. The search is for the factor
/// plus one, so that the steps are even. `size` is that of the smallest file.
int smallestFitting(const Saver& saver, double limit, std::int32_t size) {
    int place = kSmallestQuality + 1;
    for (int step = (kSmallestQuality + 1) / 2; step >= 1; step /= 2) {
        place = size > limit ? place + step : place - step;
        if (place == kBestQuality) {
            place = kBestQuality + 1;
        }
        size = saver.measured(place - 1);
        services().windows->repaint();
    }
    return size > limit ? place : place - 1;
}

bool lowerQuality(ImageControl& image, bool& changed) {
    image.getFileInfo(gImgDstFile);
    const double limit = toNumber(com().IniImgSize());
    if (image.infoSizeDisk() <= limit) {
        return true;
    }
    changed = true;
    const Saver saver(image);
    const std::int32_t smallest = saver.measured(kSmallestQuality);
    if (smallest > limit) {
        return fail("ファイルサイズが大きすぎて保存できません。", "IMGERR:01");
    }
    const int factor = smallestFitting(saver, limit, smallest);
    saver.save(factor);
    gImgQualityText = std::to_string(factor) + "/ 255";
    return true;
}

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
        return fail(kLabel + std::string("において、システム設定値が不正です。"), "IMGERR:02");
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

/// Leaves the texts empty for a missing file, which the fitting reports.
void readFigures(ImageControl& image) {
    if (!services().fileSystem->exists(gImgSrcFile)) {
        return;
    }
    image.getFileInfo(gImgSrcFile);
    gImgSrcSizeText = PF_GetFileSizeString(image.infoSizeDisk());
    gImgSrcHeightText = std::to_string(image.infoHeight());
    gImgSrcWidthText = std::to_string(image.infoWidth());
    gImgQualityText = "255/255";
}

/// The loaded dialog, unloaded when it leaves scope. The form host keeps the form until no event is running.
class Confirmation : NonCopyable {
public:
    Confirmation() { services().forms->load(*form_); }
    ~Confirmation() {
        services().forms->unload(*form_, UnloadMode::Code);
        services().forms->retire(std::move(form_));
    }
    void ask() { services().forms->showModal(*form_); }

private:
    std::unique_ptr<frm_ImgCommon> form_ = std::make_unique<frm_ImgCommon>();
};

/// False if the dialog could not be loaded.
bool confirmed() {
    gImgLoaded = false;
    Confirmation dialog;
    if (gImgLoaded) {
        dialog.ask();
    }
    return gImgLoaded;
}

}  // namespace

bool bas_Image::PF_ChangeQFactor(ImageControl& image, bool& changed) {
    return trapped("[ PF_ChangeQFactor ] ", [&] { return lowerQuality(image, changed); });
}

bool bas_Image::PF_ResizeImePic(ImageControl& image, bool& changed) {
    return trapped(kLabel, [&] { return fit(image, changed); });
}

bool bas_Image::PF_ImeResize(const std::string& source, ImageControl& image, std::string& target) {
    return trapped("[ PF_ImeResize ] ", [&] {
        gImgSrcFile = source;
        gImgDstFile = target;
        readFigures(image);
        bool changed = false;
        if (!PF_ResizeImePic(image, changed) || !PF_ChangeQFactor(image, changed)) {
            return false;
        }
        if (changed && !confirmed()) {
            return false;
        }
        target = gImgDstFile;
        return true;
    });
}

}  // namespace orv
