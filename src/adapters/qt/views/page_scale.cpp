#include "adapters/qt/views/page_scale.h"

#include <QGuiApplication>
#include <algorithm>

namespace orv {
namespace {

constexpr double kSmallest = 0.75;
constexpr double kLargest = 2.5;
constexpr double kPixelsAPoint = 96.0 / 72.0;

double fittingFactor(const ScreenSpace& space) {
    bool given = false;
    const double wished = qEnvironmentVariable("ORV_SCALE").toDouble(&given);
    if (given && wished >= 0.5 && wished <= 4) {
        return wished;
    }
    const QSize size = space.inside();
    const double fitting = std::min(size.width() / double{kPageWidth}, size.height() / double{kPageHeight});
    return std::clamp(fitting, kSmallest / space.pixelRatio, kLargest);
}

}  // namespace

PageScale::PageScale() : PageScale(measureScreen(QGuiApplication::primaryScreen(), Sizing::Fixed)) {}

PageScale::PageScale(const ScreenSpace& space) : factor_(fittingFactor(space)) {}

QFont PageScale::font(int points, bool bold) const {
    QFont font = QGuiApplication::font();
    font.setPixelSize(std::max(1, qRound(points * kPixelsAPoint * factor_)));
    font.setBold(bold);
    return font;
}

}  // namespace orv
