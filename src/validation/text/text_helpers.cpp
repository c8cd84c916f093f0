#include "validation/text/text_helpers.h"

#include <algorithm>

#include "platform/ascii.h"
#include "platform/machine/code_page.h"
#include "platform/services.h"

namespace orv {
namespace {

constexpr std::string_view kIdeographicBlank = "\u3000";

std::size_t clamped(std::int32_t count, std::size_t most) {
    return count < 0 ? 0 : std::min(static_cast<std::size_t>(count), most);
}

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

std::int32_t PF_LenB(const std::string& text) {
    return static_cast<std::int32_t>(services().codePage->encode(text).size());
}

std::string PF_LeftB(const std::string& text, std::int32_t count) {
    const std::string bytes = services().codePage->encode(text);
    return services().codePage->decode(bytes.substr(0, clamped(count, bytes.size())));
}

std::string PF_RightB(const std::string& text, std::int32_t count) {
    const std::string bytes = services().codePage->encode(text);
    return services().codePage->decode(bytes.substr(bytes.size() - clamped(count, bytes.size())));
}

std::string PF_MidB(const std::string& text, std::int32_t start, std::int32_t length) {
    const std::string bytes = services().codePage->encode(text);
    const std::size_t from = clamped(start - 1, bytes.size());
    const std::size_t most = bytes.size() - from;
    return services().codePage->decode(bytes.substr(from, length < 1 ? most : clamped(length, most)));
}

}  // namespace orv
