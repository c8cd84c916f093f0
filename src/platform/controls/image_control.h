#pragma once

#include <memory>
#include <string>
#include <string_view>

#include "platform/controls/control.h"
#include "platform/machine/picture_library.h"

namespace orv {

/// `width` and `height`: of the control on the page, in design pixels.
struct ImageDesign {
    int width = 0;
    int height = 0;
    bool visible = true;
    std::string_view spokenName = {};
};

/// Shows one picture in a rectangle of its own choice, and is the place where a picture is read, sized and written.
/// Sizes of the control are design pixels.
class ImageControl : public Control {
public:
    ImageControl(ControlOwner& owner, std::string_view name, const ImageDesign& design, int index = -1);

    std::string_view spokenName() const { return spokenName_; }

    /// Reads the header of a file into the values below. Failure of the picture library when the file is no picture.
    void getFileInfo(const std::string& file);
    std::int32_t infoSizeDisk() const { return info_.sizeDisk; }
    std::int32_t infoHeight() const { return info_.height; }
    std::int32_t infoWidth() const { return info_.width; }
    std::int32_t infoBits() const { return info_.bits; }
    std::int32_t infoFormat() const { return info_.format; }

    /// Failure of the picture library when the file is no whole picture; what was shown stays. `within`: see there.
    void load(const std::string& file, PictureSize within = {});
    /// Makes the loaded picture that size, in pixels; failure 91 when nothing is loaded.
    void size(int width, int height);
    /// Writes the loaded picture over `file`, in a format and with a depth that `getFileInfo` gave. `quality`: from 2,
    /// the best picture, to 255, the smallest file. Failure 91 when nothing is loaded.
    void save(const std::string& file, std::int32_t format, std::int32_t bits, int quality) const;
    /// Shows nothing.
    void clear();
    /// Empty when nothing is loaded.
    std::shared_ptr<const Picture> picture() const { return picture_; }
    /// Of the loaded picture; failure 91 when nothing is loaded.
    int bitmapWidth() const;
    int bitmapHeight() const;

    int scaleWidth() const { return width(); }
    int scaleHeight() const { return height(); }
    /// Where the picture is painted, and what is seen of it.
    void setDstRect(const Box& box);
    void setDstClipRect(const Box& box);
    const Box& dstRect() const { return dstRect_; }
    const Box& dstClipRect() const { return dstClipRect_; }

    /// Repaints after each change while on; a change to on repaints at once.
    void setAutoRepaint(bool on);
    /// Whether a repaint clears the whole control first, or only what the picture does not cover.
    bool backErase() const { return backErase_; }
    void setBackErase(bool on) { backErase_ = on; }
    /// Whether the operator can scroll to the part of the destination that is outside the control.
    void setAutoScroll(bool on);
    /// The operator scrolls by that many design pixels. Does nothing unless scrolling is on.
    void scrollBy(int right, int down);
    /// The destination, moved by what has been scrolled.
    Box scrolledRect() const {
        return {dstRect_.x - scrolled_.x, dstRect_.y - scrolled_.y, dstRect_.width, dstRect_.height};
    }

    /// Whether the operator may drop a file on it.
    bool acceptsDrops() const { return acceptsDrops_; }
    void setAcceptsDrops(bool accepts) { acceptsDrops_ = accepts; }
    /// Whether a file dropped now would be taken: on a usable control of an enabled form only.
    bool takesDrops() const { return acceptsDrops_ && usable() && owner().ownerEnabled(); }
    /// The operator drops a file: raises drop where it is taken.
    void drop(const std::string& file);

    /// The path of the file.
    Event<const std::string&> onDrop;

private:
    void repaint() const;
    Picture& loaded() const;

    std::shared_ptr<Picture> picture_;
    PictureInfo info_;
    Box dstRect_;
    Box dstClipRect_;
    Point scrolled_;
    bool autoRepaint_ = true;
    bool backErase_ = true;
    bool autoScroll_ = false;
    bool acceptsDrops_ = false;
    std::string_view spokenName_;
};

}  // namespace orv
