#include "images/thumbnail.h"

#include "logging/trap.h"
#include "platform/ascii.h"
#include "platform/machine/file_system.h"
#include "platform/scope.h"
#include "platform/services.h"
#include "validation/text/conversions.h"

namespace orv {
namespace {

/// The maximum number of device pixels for a design pixel, in each direction, on any screen.
constexpr int kSharpest = 4;

void uncover(ImageControl& image) {
    image.setAutoRepaint(true);
    image.setAutoScroll(true);
    image.setVisible(true);
}

/// Stops repainting of the control while its geometry is inconsistent. The destructor starts it again.
class Covered : NonCopyable {
public:
    explicit Covered(ImageControl& image) : image_(image), width_(image.width()), height_(image.height()) {
        image_.setAutoRepaint(false);
        image_.setAutoScroll(false);
        image_.setBackErase(false);
        image_.setVisible(false);
    }
    ~Covered() {
        image_.setHeight(height_);
        image_.setWidth(width_);
        uncover(image_);
    }

private:
    ImageControl& image_;
    int width_;
    int height_;
};

/// Gives the control the picture's proportions temporarily, to calculate the destination from it.
void keepProportions(ImageControl& image) {
    const double bitmapHeight = image.bitmapHeight();
    const double bitmapWidth = image.bitmapWidth();
    const std::int32_t maxHeight = toLong(image.scaleHeight() * 3.0 / 4.0);
    const std::int32_t maxWidth = toLong(image.scaleWidth() * 3.0 / 4.0);
    const double fittingHeight = bitmapHeight * maxWidth / bitmapWidth;
    if (fittingHeight >= maxHeight) {
        image.setWidth(toInteger(image.height() * bitmapWidth / bitmapHeight));
    } else {
        image.setHeight(toInteger(image.width() * bitmapHeight / bitmapWidth));
    }
}

}  // namespace

bool bas_Image::PF_Thumbnail(ImageControl& image, const std::string& file) {
    return trapped("[ PF_Thumbnail ] ", [&] {
        if (trimmed(file).empty() || !services().fileSystem->exists(file)) {
            uncover(image);
            return;
        }
        const Covered covered(image);
        image.load(file, {image.scaleWidth() * kSharpest, image.scaleHeight() * kSharpest});
        keepProportions(image);
        const Box whole{0, 0, image.scaleWidth(), image.scaleHeight()};
        image.setDstRect(whole);
        image.setDstClipRect(whole);
    });
}

}  // namespace orv
