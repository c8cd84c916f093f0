#pragma once

#include <memory>
#include <string>
#include <string_view>

#include "platform/controls/control.h"
#include "platform/machine/picture_library.h"

namespace orv {

/// `width` and `height` are the size of the control on the page, in design pixels.
struct ImageDesign {
    int width = 0;
    int height = 0;
    bool visible = true;
    std::string_view spokenName = {};
};

/// Shows one picture in a chosen rectangle. Also used to read, resize and write pictures. Sizes of the control are in
/// design pixels.
class ImageControl : public Control {
public:
    ImageControl(ControlOwner& owner, std::string_view name, const ImageDesign& design, int index = -1);

    TypedControl self() override { return this; }
    ControlTexts texts() const override { return {.spokenName = spokenName_}; }
    void reset() override { clear(); }

    /// Reads a file's header into the values below. Throws the picture library's failure if the file is not a picture.
    void getFileInfo(const std::string& file);
    std::int32_t infoSizeDisk() const { return info_.sizeDisk; }
    std::int32_t infoHeight() const { return info_.height; }
    std::int32_t infoWidth() const { return info_.width; }
    std::int32_t infoBits() const { return info_.bits; }
    std::int32_t infoFormat() const { return info_.format; }

    /// Throws the picture library's failure if the picture is not complete and then keeps the old one. For `within` see
    /// `PictureLibrary::load`.
    void load(const std::string& file, PictureSize within = {});
    /// Resizes the loaded picture, in pixels. Throws failure 91 if nothing is loaded.
    void size(int width, int height);
    /// Writes the loaded picture to `file`, with a format and depth from `getFileInfo`. `quality` is from
    /// `kBestQuality` to `kSmallestQuality`. Throws failure 91 if nothing is loaded.
    void save(const std::string& file, std::int32_t format, std::int32_t bits, int quality) const;
    /// Removes the picture.
    void clear();
    /// Returns null if nothing is loaded.
    std::shared_ptr<const Picture> picture() const { return picture_; }
    /// Throws failure 91 if nothing is loaded.
    int bitmapWidth() const;
    int bitmapHeight() const;

    int scaleWidth() const { return width(); }
    int scaleHeight() const { return height(); }
    /// Set where the picture is painted, and which part of that is visible.
    void setDstRect(const Box& box);
    void setDstClipRect(const Box& box);
    const Box& dstRect() const { return dstRect_; }
    const Box& dstClipRect() const { return dstClipRect_; }

    /// Repaints after each change while on. Switching on repaints at once.
    void setAutoRepaint(bool on);
    /// True if a repaint first clears the whole control. False if it clears only the part that the picture does not
    /// cover.
    bool backErase() const { return backErase_; }
    void setBackErase(bool on) { backErase_ = on; }
    /// Allows the operator to scroll to the part of the destination outside the control.
    void setAutoScroll(bool on);
    /// Called when the operator scrolls, in design pixels. Does nothing unless scrolling is on.
    void scrollBy(int right, int down);
    /// Returns the destination rectangle, moved by the scrolled distance.
    Box scrolledRect() const {
        return {dstRect_.x - scrolled_.x, dstRect_.y - scrolled_.y, dstRect_.width, dstRect_.height};
    }

    /// True if the operator can drop a file on the control.
    bool acceptsDrops() const { return acceptsDrops_; }
    void setAcceptsDrops(bool accepts) { acceptsDrops_ = accepts; }
    /// True if a drop would be accepted now. Requires a usable control on an enabled form.
    bool canDrop() const { return acceptsDrops_ && usable() && owner().ownerEnabled(); }
    /// Called when the operator drops a file. Raises drop if drops are accepted.
    void drop(const std::string& file);

    /// The argument is the path of the file.
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
