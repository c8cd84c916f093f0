#include "images/quality_search.h"

#include <cstdint>

#include "config/settings.h"
#include "core/record/globals.h"
#include "logging/error_pair.h"
#include "logging/trap.h"
#include "platform/machine/window_system.h"
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
    int place = kSmallestFile + 1;
    for (int step = (kSmallestFile + 1) / 2; step >= 1; step /= 2) {
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
    const std::int32_t smallest = saver.measured(kSmallestFile);
    if (smallest > limit) {
        return fail("ファイルサイズが大きすぎて保存できません。", "IMGERR:01");
    }
    const int factor = smallestFitting(saver, limit, smallest);
    saver.save(factor);
    gImgQualityText = std::to_string(factor) + "/ 255";
    return true;
}

}  // namespace

bool bas_Image::PF_ChangeQFactor(ImageControl& image, bool& changed) {
    return trapped("[ PF_ChangeQFactor ] ", [&] { return lowerQuality(image, changed); });
}

}  // namespace orv
