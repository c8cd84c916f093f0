#pragma once

#include <cstddef>
#include <functional>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "platform/machine/window_system.h"

namespace orv {

/// One message. In its text %1 to %9 are the places of the values.
struct Message {
    enum class Buttons { Ok, YesNo };

    Notice::Kind kind = Notice::Kind::Information;
    Buttons buttons = Buttons::Ok;
    std::string text;

    friend bool operator==(const Message&, const Message&) = default;
};

using Messages = std::map<std::string, Message, std::less<>>;

/// What a message file holds, and the numbers of its lines (from 1) that could not be read.
struct MessageFile {
    Messages messages;
    std::vector<std::size_t> badLines;
};

/// Reads the decoded content of a message file: a message a line, "id,kind,buttons,text". The kind is INFO, WARN, ERROR
/// or ASK, the buttons OK or YESNO; an id is up to 16 letters and digits. The text is all the rest of the line, commas
/// included; \n in it is a line break, \\ a backslash. Blank lines and lines that begin with ";" say nothing; blanks
/// around a part do not count; a text is of at most 4096 bytes. Of two lines with one id the later one counts. Any
/// other line is skipped.
MessageFile readMessages(std::string_view content);

/// The messages by id: those that the program is built with, so that a damaged install still speaks, and over them
/// those of a file.
class MessageTable {
public:
    MessageTable();

    /// Kinds and texts of the file replace the built-in ones. The buttons of a built-in message stay: what it asks, or
    /// does not ask, is the program's affair, and no file may turn a question into a mere notice.
    void overrideBy(const Messages& messages);
    const Messages& messages() const { return messages_; }

private:
    Messages messages_;
};

/// The text with its values in their places. A place without a value is empty; what stands in a value is not looked at.
std::string expanded(std::string_view text, const std::vector<std::string>& values);

}  // namespace orv
