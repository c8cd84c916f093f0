#include "adapters/qt/canvas_painter.h"

#include "adapters/qt/views/qt_text.h"

namespace orv {
namespace {

struct ShapePainter {
    QPainter& painter;
    const PageScale& scale;

    /// A line is one design pixel thick at every scale.
    void operator()(const DrawnLine& line) const {
        const Box covered{line.from.x, line.from.y, line.to.x - line.from.x + 1, line.to.y - line.from.y + 1};
        painter.fillRect(scale.box(covered), toQt(line.colour));
    }
    void operator()(const DrawnBox& box) const {
        if (box.filled) {
            painter.fillRect(scale.box(box.box), toQt(box.colour));
        } else {
            painter.setPen(toQt(box.colour));
            painter.drawRect(scale.box(box.box).adjusted(0, 0, -1, -1));
        }
    }
    void operator()(const DrawnText& text) const {
        painter.setFont(scale.font(text.fontSize, text.bold));
        painter.setPen(toQt(text.colour));
        const int height = painter.fontMetrics().height();
        const int nominal = scale.length(text.fontSize * 4 / 3);
        const QRect line(scale.point(text.at) - QPoint(0, (height - nominal) / 2), QSize(scale.length(1000), height));
        painter.drawText(line, Qt::AlignLeft | Qt::AlignVCenter, toQt(text.text));
    }
};

}  // namespace

void paintCanvas(QPainter& painter, const Canvas& canvas, const PageScale& scale, const QRect& area) {
    painter.fillRect(area, toQt(canvas.back()));
    for (const Shape& shape : canvas.shapes()) {
        std::visit(ShapePainter{painter, scale}, shape);
    }
}

}  // namespace orv
