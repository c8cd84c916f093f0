#include "validation/text/blanks.h"

#include "platform/ascii.h"

namespace orv {
namespace {

constexpr std::string_view kIdeographicBlank = "\u3000";

}  // namespace

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
    return value.isNull() ? fallback : std::string(trimmedRight(toText(value)));
}

}  // namespace orv
