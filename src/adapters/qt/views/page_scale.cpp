#include "adapters/qt/views/page_scale.h"

#include <QGuiApplication>
#include <QScreen>
#include <algorithm>

namespace orv {
namespace {

constexpr double kLargest = 2.5;
// What a window manager puts around a window.
constexpr int kFrame = 60;
constexpr double kPixelsAPoint = 96.0 / 72.0;

double fittingFactor() {
    bool given = false;
    const double wished = qEnvironmentVariable("ORV_SCALE").toDouble(&given);
    if (given && wished >= 0.5 && wished <= 4) {
        return wished;
    }
    const QScreen* screen = QGuiApplication::primaryScreen();
    if (screen == nullptr) {
        return 1;
    }
    const QSize area = screen->availableSize();
    const double fitting = std::min(area.width() / double{kPageWidth}, (area.height() - kFrame) / double{kPageHeight});
    return std::clamp(fitting, 1.0, kLargest);
}

}  // namespace

PageScale::PageScale() : factor_(fittingFactor()) {}

QFont PageScale::font(int points, bool bold) const {
    QFont font = QGuiApplication::font();
    font.setPixelSize(std::max(1, qRound(points * kPixelsAPoint * factor_)));
    font.setBold(bold);
    return font;
}

}  // namespace orv
