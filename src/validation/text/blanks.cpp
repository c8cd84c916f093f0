#include "validation/text/blanks.h"

namespace orv {
namespace {

constexpr std::string_view kIdeographicBlank = "\u3000";

}  // namespace

std::string trimmedRight(std::string_view text) {
    const auto last = text.find_last_not_of(' ');
    return last == std::string_view::npos ? std::string() : std::string(text.substr(0, last + 1));
}

std::string trimmed(std::string_view text) {
    const auto first = text.find_first_not_of(' ');
    return first == std::string_view::npos ? std::string() : trimmedRight(text.substr(first));
}

bool isBlank(std::string_view text) {
    while (!text.empty()) {
        if (text.front() == ' ') {
            text.remove_prefix(1);
        } else if (text.starts_with(kIdeographicBlank)) {
            text.remove_prefix(kIdeographicBlank.size());
        } else {
            return false;
        }
    }
    return true;
}

std::string PF_NullToStr(const Value& value, const std::string& fallback) {
    return value.isNull() ? fallback : trimmedRight(toText(value));
}

}  // namespace orv
