#pragma once

#include <QFontInfo>
#include <QFontMetrics>

namespace orv {

/// Returns how far a line of text must be raised to centre Japanese characters vertically. The font's ascent and
/// descent do not centre them: their middle is 0.38 em above the baseline in every Japanese font.
inline int textLift(const QFont& font) {
    const QFontMetrics metrics(font);
    return qRound((metrics.ascent() - metrics.descent()) / 2.0 + 0.5 - 0.38 * QFontInfo(font).pixelSize());
}

}  // namespace orv
