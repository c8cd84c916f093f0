#pragma once

#include <QStringList>
#include <optional>

namespace search {

/// What the calling program hands over, joined by commas: the values that it has now, and the handles of what is to be
/// filled and of the button that is pressed at the end.
struct CommandLine {
    QStringList values;
    QStringList handles;
    QString button;
};

/// `text`: all that stands behind the program's name. A comma too many belongs to the last value but one, which
/// may be any text. Nothing when parts are missing or a handle is no number.
std::optional<CommandLine> readCommandLine(const QString& text, qsizetype valueCount, qsizetype handleCount);

}  // namespace search
