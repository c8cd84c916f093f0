#include "adapters/http/company_document.h"

#include <gtest/gtest.h>

#include <map>
#include <string>
#include <vector>

namespace orv {
namespace {

TEST(IdInAnswer, AnObjectWithAnIdTextIsAnAnswer) {
    for (const auto& [body, id] : std::map<std::string, std::string>{
             {R"({"id":"000005001"})", "000005001"},
             {" {\"id\" : \"12345678\", \"more\": [1, {\"id\": 2}]}\r\n", "12345678"},
             {R"({"id":"\u65e5\u672c"})", "日本"},
             {R"({"id":" 1 "})", " 1 "},
             {R"({"id":")" + std::string(64, '1') + "\"}", std::string(64, '1')},
         }) {
        EXPECT_EQ(idInAnswer(body), id) << body;
    }
}

TEST(IdInAnswer, AnythingElseIsNone) {
    const std::vector<std::string> bad{"",
                                       "ok",
                                       "null",
                                       "\"000005001\"",
                                       "[]",
                                       R"([{"id":"000005001"}])",
                                       "{}",
                                       R"({"ID":"000005001"})",
                                       R"({"id":5001})",
                                       R"({"id":null})",
                                       R"({"id":""})",
                                       R"({"id":"000005001")",
                                       R"({"id":"000005001"} x)",
                                       "<html>\xFF\xFE{]",
                                       "{\"id\":\"\xFF\"}",
                                       "{\"id\":\"a\nb\"}",
                                       R"({"id":"a\nb"})",
                                       R"({"id":"a\u0000b"})",
                                       R"({"id":"a\u007f"})",
                                       R"({"id":"a\u0085"})",
                                       R"({"id":"1234';--"})",
                                       R"({"id":")" + std::string(65, '1') + "\"}",
                                       R"({"id":)" + std::string(500'000, '{')};
    for (const auto& body : bad) {
        EXPECT_EQ(idInAnswer(body), std::nullopt) << body.substr(0, 80);
    }
}

}  // namespace
}  // namespace orv
