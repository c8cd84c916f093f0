#pragma once

#include <cstddef>
#include <functional>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "platform/machine/window_system.h"

namespace orv {

/// One message. %1 to %9 in its text are replaced by the values.
struct Message {
    enum class Buttons { Ok, YesNo };

    Notice::Kind kind = Notice::Kind::Information;
    Buttons buttons = Buttons::Ok;
    std::string text;

    friend bool operator==(const Message&, const Message&) = default;
};

using Messages = std::map<std::string, Message, std::less<>>;

/// The content of a message file, and the numbers (from 1) of the lines that could not be read.
struct MessageFile {
    Messages messages;
    std::vector<std::size_t> badLines;
};

/// Parses the decoded content of a message file, one "id,kind,buttons,text" per line. The kind is INFO, WARN, ERROR or
/// ASK, the buttons OK or YESNO; an id is up to 16 letters and digits. The text is the rest of the line with commas, at
/// most 4096 bytes;
///  is a line break, \\ a backslash. Blanks around parts, blank lines and lines that begin with ";" are ignored. Of two
/// lines with the same id the later one counts. Any other line is skipped.
MessageFile readMessages(std::string_view content);

/// The messages by id. The built-in ones make a damaged install usable; those of a file override them.
class MessageTable {
public:
    MessageTable();

    /// Replaces kinds and texts of built-in messages by those of the file. Keeps their buttons, so that no file can
    /// turn a question into a notice.
    void overrideBy(const Messages& messages);
    const Messages& messages() const { return messages_; }

private:
    Messages messages_;
};

/// Inserts the values into the text. A missing value is empty. Values are not expanded themselves.
std::string expanded(std::string_view text, const std::vector<std::string>& values);

}  // namespace orv
