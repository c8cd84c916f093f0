#pragma once

#include <QFont>
#include <QRect>

#include "adapters/qt/views/screen_room.h"
#include "platform/design.h"

namespace orv {

/// From design pixels to those of the screen. Places and fonts are scaled as numbers, so that every scale is sharp.
class PageScale {
public:
    /// The scale for the primary screen.
    PageScale();
    /// The largest scale up to 2.5 at which a page fits the room, but at least three quarters of a pixel of the screen
    /// for one of the design, as smaller text cannot be read. The environment variable ORV_SCALE gives another one.
    explicit PageScale(const ScreenRoom& room);

    double factor() const { return factor_; }
    int length(int design) const { return qRound(design * factor_); }
    QPoint point(Point design) const { return {length(design.x), length(design.y)}; }
    /// Edges, not sizes, are rounded: neighbours stay neighbours.
    QRect box(const Box& design) const {
        return QRect(point({design.x, design.y}), point({design.right(), design.bottom()}) - QPoint(1, 1));
    }
    /// `points` at 96 dots an inch.
    QFont font(int points, bool bold = false) const;

private:
    double factor_;
};

}  // namespace orv
