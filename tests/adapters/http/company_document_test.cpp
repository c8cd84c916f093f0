#include "adapters/http/company_document.h"

#include <gtest/gtest.h>

#include <map>
#include <string>

namespace orv {
namespace {

TEST(IdInAnswer, AnObjectWithAnIdTextIsAnAnswer) {
    for (const auto& [body, id] : std::map<std::string, std::string>{
             {" {\"id\" : \"12345678\", \"more\": [1, {\"id\": 2}]}\r\n", "12345678"},
             {R"({"id":"\u65e5\u672c"})", "日本"},
             {R"({"id":")" + std::string(64, '1') + "\"}", std::string(64, '1')},
         }) {
        EXPECT_EQ(idInAnswer(body), id) << body;
    }
}

TEST(IdInAnswer, AnythingElseIsNone) {
    for (const char* body :
         {"", "ok", "[]", "{}", R"({"ID":"000005001"})", R"({"id":5001})", R"({"id":""})", R"({"id":"000005001"} x)",
          "<html>\xFF\xFE{]", "{\"id\":\"\xFF\"}", R"({"id":"a\u0000b"})", R"({"id":"1234';--"})"}) {
        EXPECT_EQ(idInAnswer(body), std::nullopt) << body;
    }
    EXPECT_EQ(idInAnswer(R"({"id":")" + std::string(65, '1') + "\"}"), std::nullopt);
    EXPECT_EQ(idInAnswer(R"({"id":)" + std::string(500'000, '{')), std::nullopt);
}

}  // namespace
}  // namespace orv
