#include "adapters/machine/registry_text.h"

#include <algorithm>
#include <utility>

#include "platform/ascii.h"
#include "platform/utf8.h"

namespace orv {
namespace {

using Text = std::string_view;

constexpr Text kDefaultValueName = "@";

/// Returns a line without its end and without blanks at both ends.
Text bare(Text line) { return trimmed(withoutByteOrderMark(trimmedRight(line, "\r\n")), kBlanksAndTabs); }

std::optional<Text> keyIn(const std::string& line) {
    const Text text = bare(line);
    if (!text.starts_with('[') || !text.ends_with(']')) {
        return std::nullopt;
    }
    return trimmed(text.substr(1, text.size() - 2), kBlanksAndTabs);
}

std::optional<std::pair<Text, Text>> entryIn(const std::string& line) {
    const Text text = bare(line);
    const auto equals = text.find('=');
    if (equals == Text::npos || text.starts_with(';')) {
        return std::nullopt;
    }
    return std::pair(trimmed(text.substr(0, equals), kBlanksAndTabs), trimmed(text.substr(equals + 1), kBlanksAndTabs));
}

bool isQuoted(Text value) { return value.size() >= 2 && value.front() == '"' && value.back() == '"'; }

/// Adds quotes if the reader would otherwise remove a part of the value.
std::string written(Text value) {
    const bool plain = value == trimmed(value, kBlanksAndTabs) && !isQuoted(value);
    return plain ? std::string(value) : "\"" + std::string(value) + "\"";
}

Text shownName(Text name) { return name.empty() ? kDefaultValueName : name; }

}  // namespace

RegistryText::RegistryText(std::string_view text) {
    while (!text.empty()) {
        const auto size = std::min(text.find('\n'), text.size() - 1) + 1;
        lines_.emplace_back(text.substr(0, size));
        text.remove_prefix(size);
    }
}

bool RegistryText::hasKey(std::string_view key) const {
    return std::any_of(lines_.begin(), lines_.end(), [&](const std::string& line) {
        const auto found = keyIn(line).value_or(Text());
        const bool below = found.size() > key.size() && found[key.size()] == '\\';
        return equalWithoutCase(found, key) || (below && equalWithoutCase(found.substr(0, key.size()), key));
    });
}

bool RegistryText::hasSection(std::string_view key) const {
    return std::any_of(lines_.begin(), lines_.end(),
                       [&](const std::string& line) { return equalWithoutCase(keyIn(line).value_or(Text()), key); });
}

void RegistryText::addKey(std::string_view key) {
    if (!lines_.empty()) {
        lines_.back() += lines_.back().ends_with('\n') ? "" : "\n";
        lines_.emplace_back("\n");
    }
    lines_.push_back("[" + std::string(key) + "]\n");
}

RegistryText::Place RegistryText::findPlace(std::string_view key, std::string_view name) const {
    bool inKey = false;
    std::size_t free = lines_.size();
    for (std::size_t at = 0; at < lines_.size(); ++at) {
        if (const auto header = keyIn(lines_[at])) {
            inKey = equalWithoutCase(*header, key);
            free = inKey ? at + 1 : free;
        } else if (const auto entry = entryIn(lines_[at]); inKey && entry) {
            if (equalWithoutCase(entry->first, shownName(name))) {
                return {at, true};
            }
            free = at + 1;
        }
    }
    return {free, false};
}

std::optional<std::string> RegistryText::findValue(std::string_view key, std::string_view name) const {
    const Place place = findPlace(key, name);
    if (!place.found) {
        return std::nullopt;
    }
    const Text value = entryIn(lines_[place.line])->second;
    return std::string(isQuoted(value) ? value.substr(1, value.size() - 2) : value);
}

void RegistryText::setValue(std::string_view key, std::string_view name, std::string_view value) {
    if (!hasSection(key)) {
        addKey(key);
    }
    const Place place = findPlace(key, name);
    const bool dos = place.line > 0 && lines_[place.line - 1].ends_with("\r\n");
    std::string line = std::string(shownName(name)) + "=" + written(value) + (dos ? "\r\n" : "\n");
    if (place.found) {
        lines_[place.line] = std::move(line);
        return;
    }
    if (place.line > 0 && !lines_[place.line - 1].ends_with('\n')) {
        lines_[place.line - 1] += '\n';
    }
    lines_.insert(lines_.begin() + static_cast<std::ptrdiff_t>(place.line), std::move(line));
}

std::string RegistryText::text() const {
    std::string all;
    for (const auto& line : lines_) {
        all += line;
    }
    return all;
}

}  // namespace orv
