// Bytes in the code page and texts in UTF-8: each way back loses no more than the first way did.
#include "adapters/text/cp932.h"
#include "fuzz/fuzz_target.h"
#include "platform/utf8.h"

namespace orv::test {
namespace {

void run(const std::string& bytes) {
    static const Cp932 codePage;
    const std::string text = codePage.decode(bytes);
    require(toUtf8(toCharacters(text)) == text, "decoding gives valid UTF-8");
    require(codePage.decode(codePage.encode(text)) == text, "what was decoded is held");
    const std::string encoded = codePage.encode(bytes);
    require(encoded.size() <= bytes.size() + 1 || toCharacters(bytes).size() * 2 >= encoded.size(),
            "at most two bytes a character");
    require(codePage.encode(codePage.decode(encoded)) == encoded, "what was encoded comes back");
}

}  // namespace

FuzzTarget codePageTarget() {
    return {"code_page",
            run,
            {"\x83\x5C\x95\x5C \xB1\xB2\r\n", "\xFA\x40\xED\x40\x81\xCA\x87\x82", "\x80\xA0\xFD\xFE\xFF\x81\n\x85\x40",
             "ソ表～－∥￢①Ⅱ㈱髙﨑", "\xF0\x9F\x8F\xA0 \xED\xA0\x80 \xC0\x80 \xF4\x90\x80\x80"}};
}

}  // namespace orv::test
