#pragma once

#include <QColor>
#include <QFontInfo>
#include <QFontMetrics>
#include <QString>
#include <string_view>

#include "platform/design.h"

namespace orv {

/// Colours of text that is readable on every colour of a page. The desktop's own colours can be light or dark.
inline constexpr Colour kPageText{0x000000};
inline constexpr Colour kDisabledText{0x484848};

inline QString toQt(std::string_view text) {
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

inline QColor toQt(Colour colour) {
    return QColor(static_cast<int>(colour.bgr & 0xffU), static_cast<int>((colour.bgr >> 8U) & 0xffU),
                  static_cast<int>((colour.bgr >> 16U) & 0xffU));
}

/// Returns how far a line of text must be raised to centre Japanese characters vertically. The font's ascent and
/// descent do not centre them: their middle is 0.38 em above the baseline in every Japanese font.
inline int textLift(const QFont& font) {
    const QFontMetrics metrics(font);
    return qRound((metrics.ascent() - metrics.descent()) / 2.0 + 0.5 - 0.38 * QFontInfo(font).pixelSize());
}

}  // namespace orv
