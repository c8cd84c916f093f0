#pragma once

#include <QMargins>
#include <QPoint>
#include <QRect>
#include <functional>

#include "platform/forms/form.h"

class QScreen;

namespace orv {

/// Where windows can be on a screen, and the frame that each of them gets.
struct ScreenRoom {
    QRect area;
    QMargins frame;
    /// Pixels of the screen in one of the toolkit's, which is larger where the operator wants everything larger.
    double pixelRatio = 1;

    /// The size of the largest window, without its frame.
    QSize inside() const { return area.size().shrunkBy(frame); }
    /// The position of the frame at which a window of that size and its frame are in the middle. What is too large
    /// begins at the upper left corner.
    QPoint middleFor(QSize window) const {
        const QSize left = (area.size() - window.grownBy(frame)).expandedTo({0, 0});
        return area.topLeft() + QPoint(left.width() / 2, left.height() / 2);
    }
};

using RoomOf = std::function<ScreenRoom(const QScreen*, Sizing)>;

/// The part of the screen that no panel of the desktop occupies; empty without a screen.
ScreenRoom screenRoom(const QScreen* screen, Sizing sizing);

}  // namespace orv
