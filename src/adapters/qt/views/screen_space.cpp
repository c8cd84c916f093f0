#include "adapters/qt/views/screen_space.h"

#include <QScreen>
#include <cmath>
#include <map>

#include "adapters/qt/views/window_frame.h"

namespace orv {
namespace {

/// The desktop is asked once for each sizing.
QMargins windowFrame(Sizing sizing) {
    static std::map<Sizing, QMargins> frames;
    const auto known = frames.find(sizing);
    return known != frames.end() ? known->second : frames[sizing] = measureFrame(sizing);
}

}  // namespace

ScreenSpace measureScreen(const QScreen* screen, Sizing sizing) {
    if (screen == nullptr) {
        return {};
    }
    const QMargins frame = windowFrame(sizing);
    const double ratio = screen->devicePixelRatio();
    const auto scaled = [&](int side) { return static_cast<int>(std::ceil(side / ratio)); };
    return {screen->availableGeometry(),
            {scaled(frame.left()), scaled(frame.top()), scaled(frame.right()), scaled(frame.bottom())},
            ratio};
}

}  // namespace orv
