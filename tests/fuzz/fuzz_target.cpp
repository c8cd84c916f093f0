#include "fuzz/fuzz_target.h"

#include <algorithm>

#include "platform/utf8.h"

namespace orv::test {

std::vector<FuzzTarget> fuzzTargets() {
    return {argumentTarget(), settingsTarget(), codePageTarget(),     messageTableTarget(), helpTarget(),
            pictureTarget(),  siblingTarget(),  serverAnswerTarget(), statementTarget(),    eraDateTarget()};
}

bool isShowable(std::string_view text, std::string_view controls) {
    const std::u32string characters = toCharacters(text);
    return toUtf8(characters) == text && std::ranges::all_of(characters, [&](char32_t c) {
               return (c >= 0x20 && c != 0x7F) || controls.find(static_cast<char>(c)) != std::string_view::npos;
           });
}

}  // namespace orv::test
