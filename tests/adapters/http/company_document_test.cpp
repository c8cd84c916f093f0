#include "adapters/http/company_document.h"

#include <gtest/gtest.h>

#include <array>

namespace orv {
namespace {

TEST(IdInAnswer, AnObjectWithAnIdTextIsAnAnswer) {
    constexpr auto kGood = std::to_array<std::pair<const char*, const char*>>({
        {R"({"id":"000005001"})", "000005001"},
        {" {\"id\" : \"12345678\", \"more\": [1, {\"id\": 2}]}\r\n", "12345678"},
        {R"({"id":"---------"})", "---------"},
        {R"({"id":"\u65e5\u672c"})", "日本"},
        {R"({"id":" 1 "})", " 1 "},
        {R"({"id":"1234567890123456789012345678901234567890123456789012345678901234"})",
         "1234567890123456789012345678901234567890123456789012345678901234"},
    });
    for (const auto& [body, id] : kGood) {
        EXPECT_EQ(idInAnswer(body), id) << body;
    }
}

TEST(IdInAnswer, AnythingElseIsNone) {
    const std::vector<std::string> bad = {
        "",
        " ",
        "ok",
        "null",
        "\"000005001\"",
        "5001",
        "[]",
        R"([{"id":"000005001"}])",
        "{}",
        R"({"ID":"000005001"})",
        R"({"id":5001})",
        R"({"id":null})",
        R"({"id":["1"]})",
        R"({"id":""})",
        R"({"id":"000005001")",
        R"({"id":"000005001"} x)",
        R"({'id':'000005001'})",
        "<html>\xFF\xFE{]",
        "{\"id\":\"\xFF\"}",
        "{\"id\":\"a\nb\"}",
        R"({"id":"a\nb"})",
        R"({"id":"a\u0000b"})",
        R"({"id":"a\u007f"})",
        R"({"id":"a\u0085"})",
        R"({"id":"1234';--"})",
        R"({"id":")" + std::string(65, '1') + "\"}",
        std::string(500'000, '['),
        R"({"id":)" + std::string(500'000, '{'),
    };
    for (const auto& body : bad) {
        EXPECT_EQ(idInAnswer(body), std::nullopt) << body.substr(0, 80);
    }
}

TEST(IdInAnswer, NoPrefixOfAnAnswerIsOne) {
    const std::string whole = R"({"id":"000005001","name":"\u65e5","n":[1.5e3,true,null]})";
    for (std::size_t length = 0; length < whole.size(); ++length) {
        EXPECT_EQ(idInAnswer(whole.substr(0, length)), std::nullopt) << length;
    }
}

}  // namespace
}  // namespace orv
