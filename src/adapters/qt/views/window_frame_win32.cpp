#include <windows.h>
#include <QGuiApplication>
#include <QScreen>

#include "adapters/qt/views/window_frame.h"

namespace orv {

QMargins measureFrame(Sizing sizing) {
    if (QGuiApplication::platformName() != QStringLiteral("windows")) {
        return {};
    }
    const QScreen* screen = QGuiApplication::primaryScreen();
    const UINT dpi = static_cast<UINT>(qRound(screen->logicalDotsPerInch() * screen->devicePixelRatio()));
    const DWORD style = sizing == Sizing::Fixed ? WS_OVERLAPPEDWINDOW & ~(WS_THICKFRAME | WS_MAXIMIZEBOX)
                                                : static_cast<DWORD>(WS_OVERLAPPEDWINDOW);
    RECT outside{};
    ::AdjustWindowRectExForDpi(&outside, style, FALSE, 0, dpi);
    return {-static_cast<int>(outside.left), -static_cast<int>(outside.top), static_cast<int>(outside.right),
            static_cast<int>(outside.bottom)};
}

}  // namespace orv
