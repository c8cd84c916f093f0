#pragma once

#include <QFontInfo>
#include <QFontMetrics>

namespace orv {

/// How far a line of text must be moved up so that Japanese characters, and not the font's ascent and descent, are in
/// the middle of the line. Their middle is 0.38 em above the baseline in every Japanese font.
inline int textLift(const QFont& font) {
    const QFontMetrics metrics(font);
    return qRound((metrics.ascent() - metrics.descent()) / 2.0 + 0.5 - 0.38 * QFontInfo(font).pixelSize());
}

}  // namespace orv
