#include "adapters/qt/views/screen_room.h"

#include <QScreen>
#include <cmath>

#include "adapters/qt/views/window_frame.h"

namespace orv {

ScreenRoom screenRoom(const QScreen* screen, Sizing sizing) {
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
