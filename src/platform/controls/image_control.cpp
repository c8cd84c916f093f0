#include "platform/controls/image_control.h"

#include <algorithm>

#include "platform/run_time_error.h"
#include "platform/services.h"

namespace orv {

ImageControl::ImageControl(ControlOwner& owner, std::string_view name, const ImageDesign& design, int index)
    : Control(owner, name, index, ControlKind::Image),
      dstRect_{0, 0, design.width, design.height},
      dstClipRect_(dstRect_),
      spokenName_(design.spokenName) {
    Control::design({}, true, design.visible);
    setBox(dstRect_);
}

void ImageControl::getFileInfo(const std::string& file) { info_ = services().pictures->info(file); }

void ImageControl::load(const std::string& file, PictureSize within) {
    picture_ = services().pictures->load(file, within);
    repaint();
}

void ImageControl::size(int width, int height) {
    loaded().size(width, height);
    repaint();
}

void ImageControl::save(const std::string& file, std::int32_t format, std::int32_t bits, int quality) const {
    loaded().save(file, format, bits, quality);
}

void ImageControl::clear() {
    picture_.reset();
    repaint();
}

int ImageControl::bitmapWidth() const { return loaded().width(); }

int ImageControl::bitmapHeight() const { return loaded().height(); }

void ImageControl::setDstRect(const Box& box) {
    dstRect_ = box;
    scrolled_ = {};
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

void ImageControl::setAutoScroll(bool on) {
    autoScroll_ = on;
    scrolled_ = {};
    repaint();
}

void ImageControl::scrollBy(int right, int down) {
    if (autoScroll_) {
        scrolled_.x = std::clamp(scrolled_.x + right, 0, std::max(0, dstRect_.right() - width()));
        scrolled_.y = std::clamp(scrolled_.y + down, 0, std::max(0, dstRect_.bottom() - height()));
        repaint();
    }
}

void ImageControl::drop(const std::string& file) {
    if (canDrop()) {
        onDrop.raise(file);
    }
}

Picture& ImageControl::loaded() const {
    if (!picture_) {
        throw RunTimeError(Failure::ObjectNotSet);
    }
    return *picture_;
}

void ImageControl::repaint() const {
    if (autoRepaint_) {
        notifyObserver();
    }
}

}  // namespace orv
