#include "adapters/machine/ini_reader.h"

#include <algorithm>
#include <string_view>

#include "platform/ascii.h"
#include "platform/utf8.h"

namespace orv {
namespace {

using Text = std::string_view;

constexpr std::size_t kLargestFile = std::size_t{64} << 20;
constexpr std::size_t kLongestValue = 511;

/// Returns the number of bytes of the character that begins at `at`.
std::size_t widthAt(Text text, std::size_t at) {
    return CodePage::isLeadByte(text[at]) && at + 1 < text.size() ? 2 : 1;
}

/// Returns the position of a single-byte character, or npos.
std::size_t findCharacter(Text text, char wanted) {
    for (std::size_t at = 0; at < text.size(); at += widthAt(text, at)) {
        if (text[at] == wanted) {
            return at;
        }
    }
    return Text::npos;
}

bool sameName(Text a, Text b) {
    if (a.size() != b.size()) {
        return false;
    }
    for (std::size_t at = 0, width = 0; at < a.size(); at += width) {
        width = widthAt(a, at);
        const Text left = a.substr(at, width);
        const Text right = b.substr(at, width);
        if (width == 2 ? left != right : !equalWithoutCase(left, right)) {
            return false;
        }
    }
    return true;
}

/// Removes the next line from `rest` and returns it without its end. CR LF leaves an empty line, which has no meaning.
Text removeLine(Text& rest) {
    const auto end = std::find_if(rest.begin(), rest.end(), [](char c) { return c == '\n' || c == '\r'; });
    const Text line = rest.substr(0, static_cast<std::size_t>(end - rest.begin()));
    rest.remove_prefix(std::min(line.size() + 1, rest.size()));
    return trimmed(line, kBlanksAndTabs);
}

bool isHeader(Text line) { return line.starts_with('['); }

/// Returns the lines after the header of the first section with that name.
Text findSection(Text rest, Text section) {
    while (!rest.empty()) {
        const Text line = removeLine(rest);
        if (!isHeader(line)) {
            continue;
        }
        const Text name = line.substr(1);
        if (sameName(trimmed(name.substr(0, findCharacter(name, ']')), kBlanksAndTabs), section)) {
            return rest;
        }
    }
    return {};
}

/// Returns the value of the first line with that key before the next header.
Text findValue(Text rest, Text key) {
    while (!rest.empty()) {
        const Text line = removeLine(rest);
        if (isHeader(line)) {
            break;
        }
        const std::size_t equals = line.starts_with(';') ? Text::npos : findCharacter(line, '=');
        if (equals != Text::npos && sameName(trimmed(line.substr(0, equals), kBlanksAndTabs), key)) {
            return trimmed(line.substr(equals + 1), kBlanksAndTabs);
        }
    }
    return {};
}

/// Returns as many whole characters as fit.
Text cut(Text value, std::size_t limit) {
    std::size_t end = 0;
    while (end < value.size() && end + widthAt(value, end) <= limit) {
        end += widthAt(value, end);
    }
    return value.substr(0, end);
}

}  // namespace

std::string IniReader::GetPrivateProfileString(const std::string& section, const std::string& key,
                                               const std::string& file) const {
    const std::string path = resolvePath(std::string(upToNul(file)));
    if (!files_.exists(path)) {
        return {};
    }
    const std::string sectionBytes = codePage_.encode(std::string(trimmed(upToNul(section), kBlanksAndTabs)));
    const std::string keyBytes = codePage_.encode(std::string(trimmed(upToNul(key), kBlanksAndTabs)));
    const std::string bytes = files_.read(path, kLargestFile);
    const Text value = findValue(findSection(withoutByteOrderMark(bytes), sectionBytes), keyBytes);
    return codePage_.decode(std::string(cut(withoutQuotes(value), kLongestValue)));
}

std::string IniReader::resolvePath(const std::string& file) const {
    const bool bare = file.find_first_of("\\/:") == std::string::npos;
    return bare && !file.empty() ? facts_.GetWindowsDirectory() + "\\" + file : file;
}

}  // namespace orv
