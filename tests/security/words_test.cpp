#include <gtest/gtest.h>

#include "adapters/postgres/postgres_failure.h"
#include "adapters/words/printable.h"

namespace orv {
namespace {

TEST(Words, WhatComesFromOutsideIsOneLineOfCharactersThatCanBeSeen) {
    struct Case {
        std::string words, shown;
    };
    for (const Case& row : {
             Case{"髙﨑 ﾃｽﾄ ㈱ 'x' — 𠮷", "髙﨑 ﾃｽﾄ ㈱ 'x' — 𠮷"},
             Case{"a\r\n\tb\x1b[31m\x7f\x07", "a   b [31m  "},
             Case{"\xc2\x9b"
                  "2J\xe2\x80\xae"
                  "cod.exe\xe2\x81\xa6\xe2\x80\x8b\xef\xbb\xbf",
                  " 2J cod.exe   "},
             Case{"\xff", "\uFFFD"},
             Case{std::string(501, 'x'), std::string(500, 'x') + "…"},
         }) {
        EXPECT_EQ(printable(row.words), row.shown);
    }
}

TEST(Words, AStateThatIsNoneIsNotACode) {
    for (const std::string state : {"", "1234", "\x1b[2J,", "23505,\"x\"", "2350５"}) {
        EXPECT_EQ(serverFailure(state, "").code(), "DBXXXXX") << state;
    }
    EXPECT_EQ(serverFailure("23505", "a\nb").code(), "DB23505");
    EXPECT_NE(serverFailure("23505", "a\nb").description().find("（a b）"), std::string::npos);
}

}  // namespace
}  // namespace orv
