#pragma once

#include <QPainter>

#include "adapters/qt/views/page_scale.h"
#include "platform/forms/canvas.h"

namespace orv {

/// Paints a form's drawing into `area`.
void paintCanvas(QPainter& painter, const Canvas& canvas, const PageScale& scale, const QRect& area);

}  // namespace orv
