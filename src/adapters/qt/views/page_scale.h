#pragma once

#include <QFont>
#include <QRect>

#include "platform/design.h"

namespace orv {

/// From design pixels to those of the screen. Places and fonts are scaled as numbers, so that every scale is sharp.
class PageScale {
public:
    /// The largest scale from 1 to 2.5 at which a page fits the screen, or what the environment variable ORV_SCALE
    /// says.
    PageScale();
    explicit PageScale(double factor) : factor_(factor) {}

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
