#pragma once

#include <QMargins>
#include <QPoint>
#include <QRect>
#include <functional>

#include "platform/forms/form.h"

class QScreen;

namespace orv {

/// The part of a screen for windows, and the frame around each window.
struct ScreenSpace {
    QRect area;
    QMargins frame;
    /// Screen pixels per pixel of the toolkit. More than 1 if the operator has enlarged everything on the desktop.
    double pixelRatio = 1;

    /// Returns the size of the largest window, without its frame.
    QSize inside() const { return area.size().shrunkBy(frame); }
    /// Returns the position of the frame that centres a window of that size. A window that is too large begins at the
    /// upper left corner.
    QPoint middleFor(QSize window) const {
        const QSize left = (area.size() - window.grownBy(frame)).expandedTo({0, 0});
        return area.topLeft() + QPoint(left.width() / 2, left.height() / 2);
    }
};

using MeasureScreen = std::function<ScreenSpace(const QScreen*, Sizing)>;

/// Returns the part of the screen that no panel of the desktop occupies; empty without a screen.
ScreenSpace measureScreen(const QScreen* screen, Sizing sizing);

}  // namespace orv
