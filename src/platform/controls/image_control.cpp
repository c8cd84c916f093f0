#include "platform/controls/image_control.h"

#include "platform/run_time_error.h"
#include "platform/services.h"

namespace orv {

ImageControl::ImageControl(ControlOwner& owner, std::string_view name, const ImageDesign& design, int index)
    : Control(owner, name, index, ControlKind::Image),
      width_(design.width),
      height_(design.height),
      dstRect_{0, 0, design.width, design.height},
      dstClipRect_(dstRect_),
      spokenName_(design.spokenName) {
    Control::design({}, true, design.visible);
}

void ImageControl::load(const std::string& file, PictureSize within) {
    picture_ = services().pictures->load(file, within);
    repaint();
}

void ImageControl::clear() {
    picture_.reset();
    repaint();
}

int ImageControl::bitmapWidth() const {
    if (!picture_) {
        throw RunTimeError(Failure::ObjectNotSet);
    }
    return picture_->width();
}

int ImageControl::bitmapHeight() const {
    if (!picture_) {
        throw RunTimeError(Failure::ObjectNotSet);
    }
    return picture_->height();
}

void ImageControl::setDstRect(const Box& box) {
    dstRect_ = box;
    repaint();
}

void ImageControl::setDstClipRect(const Box& box) {
    dstClipRect_ = box;
    repaint();
}

void ImageControl::setAutoRepaint(bool on) {
    autoRepaint_ = on;
    repaint();
}

void ImageControl::drop(const std::string& file) {
    if (acceptsDrops_ && usable() && owner().ownerEnabled()) {
        onDrop.raise(file);
    }
}

void ImageControl::repaint() const {
    if (autoRepaint_) {
        changed();
    }
}

}  // namespace orv
