#include "command_line.h"

#include <algorithm>

namespace search {

std::optional<CommandLine> readCommandLine(const QString& text, qsizetype valueCount, qsizetype handleCount) {
    const QStringList parts = text.split(',');
    const qsizetype values = parts.size() - handleCount - 1;
    if (values < valueCount || (values > valueCount && valueCount < 2)) {
        return std::nullopt;
    }
    CommandLine line{.values = parts.mid(0, values), .handles = parts.mid(values, handleCount), .button = parts.last()};
    if (values > valueCount) {
        line.values = parts.mid(0, valueCount - 2);
        line.values << parts.mid(valueCount - 2, values - valueCount + 1).join(',') << parts[values - 1];
    }
    const auto isHandle = [](const QString& part) { return part.toUInt() > 0; };
    const bool fine = std::all_of(line.handles.begin(), line.handles.end(), isHandle) && isHandle(line.button);
    return fine ? std::optional(line) : std::nullopt;
}

}  // namespace search
