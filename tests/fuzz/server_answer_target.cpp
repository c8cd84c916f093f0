// The server's answer to a company: the id in it goes into statements as it stands.
#include "adapters/http/company_document.h"
#include "fuzz/fuzz_target.h"

namespace orv::test {
namespace {

void run(const std::string& bytes) {
    const auto id = idInAnswer(bytes);
    if (id) {
        require(!id->empty() && id->size() <= 64, "an id has a length");
        require(isShowable(*id) && id->find('\'') == std::string::npos, "an id ends no text of a statement");
    }
}

}  // namespace

FuzzTarget serverAnswerTarget() {
    return {"server_answer",
            run,
            {R"({"id": "000005001"})", R"({"id":"a'b","x":[{"id":1e999}]})", R"({"id":"\u0000\ud83c\udfe0"})",
             R"({"id":"\ud800"})", "\xEF\xBB\xBF{\"id\":\"\xC2\x80\"}", std::string(500, '['), R"([{"id":"1"}])"}};
}

}  // namespace orv::test
