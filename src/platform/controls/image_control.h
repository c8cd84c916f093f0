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

/// Shows one picture in a rectangle of its own choice. Sizes are design pixels.
class ImageControl : public Control {
public:
    ImageControl(ControlOwner& owner, std::string_view name, const ImageDesign& design, int index = -1);

    std::string_view spokenName() const { return spokenName_; }

    /// Failure of the picture library when the file is no whole picture; what was shown stays. `within`: see there.
    void load(const std::string& file, PictureSize within = {});
    /// Shows nothing.
    void clear();
    /// Empty when nothing is loaded.
    const std::shared_ptr<const Picture>& picture() const { return picture_; }
    /// Of the loaded picture; failure 91 when nothing is loaded.
    int bitmapWidth() const;
    int bitmapHeight() const;

    int width() const { return width_; }
    int height() const { return height_; }
    int scaleWidth() const { return width_; }
    int scaleHeight() const { return height_; }
    void setWidth(int width) { width_ = width; }
    void setHeight(int height) { height_ = height; }
    /// Where the picture is painted, and what is seen of it.
    void setDstRect(const Box& box);
    void setDstClipRect(const Box& box);
    const Box& dstRect() const { return dstRect_; }
    const Box& dstClipRect() const { return dstClipRect_; }

    /// Repaints after each change while on; a change to on repaints at once.
    void setAutoRepaint(bool on);

    /// Whether the operator may drop a file on it.
    bool acceptsDrops() const { return acceptsDrops_; }
    void setAcceptsDrops(bool accepts) { acceptsDrops_ = accepts; }
    /// The operator drops a file: raises drop where that is accepted, on a usable control of an enabled form only.
    void drop(const std::string& file);

    /// The path of the file.
    Event<const std::string&> onDrop;

private:
    void repaint() const;

    std::shared_ptr<const Picture> picture_;
    int width_;
    int height_;
    Box dstRect_;
    Box dstClipRect_;
    bool autoRepaint_ = true;
    bool acceptsDrops_ = false;
    std::string_view spokenName_;
};

}  // namespace orv
