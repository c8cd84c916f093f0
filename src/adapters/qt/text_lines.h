#pragma once

#include <QString>
#include <functional>

namespace orv {

/// Breaks each paragraph of `text` into as few lines as fit into `widest`, all about equally long. A line ends after a
/// clause if possible, else between two phrases. A word is broken only if it is wider than a whole line. `measureWidth`
/// measures a line.
QString brokenIntoLines(const QString& text, int widest, const std::function<int(const QString&)>& measureWidth);

}  // namespace orv
