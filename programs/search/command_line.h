#pragma once

#include <QStringList>
#include <optional>

namespace search {

/// The arguments from the calling program, separated by commas: current values, handles of the fields to fill, and the
/// handle of the button to press at the end.
struct CommandLine {
    QStringList values;
    QStringList handles;
    QString button;
};

/// `text` is everything after the program's name. Extra commas belong to the last value but one, which can be any text.
/// Returns nothing if parts are missing or a handle is not a number.
std::optional<CommandLine> readCommandLine(const QString& text, qsizetype valueCount, qsizetype handleCount);

}  // namespace search
