#include "adapters/sqlite/left_rewriter.h"

#include <gtest/gtest.h>

#include <array>
#include <string>
#include <utility>

namespace orv {
namespace {

TEST(LeftRewriter, QuotesCallsAndNothingElse) {
    for (const auto& [sql, expected] : std::to_array<std::pair<const char*, const char*>>({
             {"where Left(A, 2) = 'x'", "where \"Left\"(A, 2) = 'x'"},
             {"and left(A,2) = LEFT (B,2)", "and \"Left\"(A,2) = \"Left\" (B,2)"},
             {"Left\t/* ( */\r\n-- (\n(A, 1)", "\"Left\"\t/* ( */\r\n-- (\n(A, 1)"},
             {"Left(Left(A, 3), 2)", "\"Left\"(\"Left\"(A, 3), 2)"},
             {"''Left(A, 1)='山'", "''\"Left\"(A, 1)='山'"},
         })) {
        EXPECT_EQ(quoteLeftCalls(sql), expected);
    }
}

TEST(LeftRewriter, LeavesTheRestToTheByte) {
    for (const std::string sql :
         {"", "A LEFT JOIN B ON A.X = B.X", "A left outer join (select 1)", "values ('it''s Left(A, 2)', 'x')",
          "select \"Left(A\", [left(B)], `Left(C)`", "select 1 -- Left(A, 2)", "select /* Left(A, 2) */ 1",
          "select 'never closed Left(A, 2)", "select [never closed Left(A, 2)", "select /* never closed Left(A, 2)",
          "select MyLeft(A, 2), Left2(A), _left(A), 2left(A), 左Left(A), left$(A)", "select left", "left -- (",
          "- / ["}) {
        EXPECT_EQ(quoteLeftCalls(sql), sql);
    }
}

}  // namespace
}  // namespace orv
