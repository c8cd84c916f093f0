#pragma once

#include <QFont>
#include <QRect>

#include "adapters/qt/views/screen_space.h"
#include "platform/design.h"

namespace orv {

/// Converts design pixels to screen pixels. Positions and font sizes are scaled, not images, so that every scale is
/// sharp.
class PageScale {
public:
    /// Chooses the scale for the primary screen.
    PageScale();
    /// Chooses the largest scale up to 2.5 at which a page fits into `space`. A design pixel is at least three quarters
    /// of a screen pixel, because smaller text cannot be read. The environment variable ORV_SCALE overrides the choice.
    explicit PageScale(const ScreenSpace& space);

    double factor() const { return factor_; }
    int length(int design) const { return qRound(design * factor_); }
    QPoint point(Point design) const { return {length(design.x), length(design.y)}; }
    /// Rounds edges, not sizes, so that adjacent boxes stay adjacent.
    QRect box(const Box& design) const {
        return QRect(point({design.x, design.y}), point({design.right(), design.bottom()}) - QPoint(1, 1));
    }
    /// Returns a font of `points` at 96 dots per inch.
    QFont font(int points, bool bold = false) const;

private:
    double factor_;
};

}  // namespace orv
