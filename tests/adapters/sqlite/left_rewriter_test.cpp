#include "adapters/sqlite/left_rewriter.h"

#include <gtest/gtest.h>

#include <string>

namespace orv {
namespace {

TEST(LeftRewriter, QuotesCallsAndNothingElse) {
    struct Case {
        std::string sql, expected;
    };
    for (const Case& row : {
             Case{"where Left(A, 2) = 'x'", "where \"Left\"(A, 2) = 'x'"},
             Case{"and left(A,2) = LEFT (B,2)", "and \"Left\"(A,2) = \"Left\" (B,2)"},
             Case{"Left\t/* ( */\r\n-- (\n(A, 1)", "\"Left\"\t/* ( */\r\n-- (\n(A, 1)"},
             Case{"Left(Left(A, 3), 2)", "\"Left\"(\"Left\"(A, 3), 2)"},
             Case{"'山'=Left(名, 1)", "'山'=\"Left\"(名, 1)"},
             Case{"''Left(A, 1)", "''\"Left\"(A, 1)"},
         }) {
        EXPECT_EQ(quoteLeftCalls(row.sql), row.expected);
    }
}

TEST(LeftRewriter, LeavesTheRestToTheByte) {
    for (const std::string sql : {
             "",
             "A LEFT JOIN B ON A.X = B.X",
             "A left outer join (select 1)",
             "values ('Left(A, 2)')",
             "values ('it''s Left(A, 2)', 'x')",
             "select \"Left(A\", [left(B)], `Left(C)`",
             "select 1 -- Left(A, 2)",
             "select /* Left(A, 2) */ 1",
             "select 'never closed Left(A, 2)",
             "select \"never closed Left(A, 2)",
             "select [never closed Left(A, 2)",
             "select /* never closed Left(A, 2)",
             "select MyLeft(A, 2), Left2(A), _left(A), 2left(A), 左Left(A), left$(A)",
             "select left",
             "left -- (",
             "- / [",
         }) {
        EXPECT_EQ(quoteLeftCalls(sql), sql);
    }
}

}  // namespace
}  // namespace orv
