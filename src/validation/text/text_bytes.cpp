#include "validation/text/text_bytes.h"

#include <algorithm>

#include "platform/machine/code_page.h"
#include "platform/services.h"

namespace orv {
namespace {

std::size_t clamped(std::int32_t count, std::size_t most) {
    return count < 0 ? 0 : std::min(static_cast<std::size_t>(count), most);
}

}  // namespace

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
