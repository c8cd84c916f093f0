#pragma once

#include <string>
#include <variant>
#include <vector>

#include "platform/design.h"

namespace orv {

struct DrawnLine {
    Point from;
    Point to;
    Colour colour;
};

struct DrawnBox {
    Box box;
    Colour colour;
    bool filled = true;
};

/// `fontSize` is in points.
struct DrawnText {
    Point at;
    std::string text;
    int fontSize = 9;
    bool bold = true;
    Colour colour{0xffffff};
};

using Shape = std::variant<DrawnLine, DrawnBox, DrawnText>;

/// The shapes drawn on a form, in order and in design pixels. They remain until `clear`.
class Canvas {
public:
    void clear(Colour back) {
        back_ = back;
        shapes_.clear();
    }
    void draw(Shape shape) { shapes_.push_back(std::move(shape)); }

    Colour back() const { return back_; }
    const std::vector<Shape>& shapes() const { return shapes_; }

private:
    Colour back_{0xffffff};
    std::vector<Shape> shapes_;
};

}  // namespace orv
