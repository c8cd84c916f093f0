// A statement on its way into the engine: only names of calls change, and only by their quotes.
#include <algorithm>

#include "adapters/sqlite/left_rewriter.h"
#include "adapters/store/ascii_fold.h"
#include "fuzz/fuzz_target.h"

namespace orv::test {
namespace {

/// The rewritten text with the quotes of its calls taken off, as far as they were put on.
bool isQuoted(std::string_view sql, std::string_view rewritten) {
    constexpr std::string_view kCall = "\"Left\"";
    while (!sql.empty()) {
        if (rewritten.starts_with(kCall) && equalWithoutCase(sql.substr(0, 4), "left")) {
            sql.remove_prefix(4);
            rewritten.remove_prefix(kCall.size());
        } else if (!rewritten.empty() && rewritten.front() == sql.front()) {
            sql.remove_prefix(1);
            rewritten.remove_prefix(1);
        } else {
            return false;
        }
    }
    return rewritten.empty();
}

void run(const std::string& bytes) {
    const std::string once = quoteLeftCalls(bytes);
    require(isQuoted(bytes, once), "nothing but calls changes");
    require(quoteLeftCalls(once) == once, "a quoted call is quoted");
}

}  // namespace

FuzzTarget statementTarget() {
    return {"statement",
            run,
            {"select Left(A, 2), left /* ( */ -- (\n(B,1) from T where X = 'it''s Left(C, 2)'",
             "select \"Left(A\", [left(B)], `Left(C)` left join U", "Left(Left(A, 3), 2)''Left(A,1)", "'left(",
             "[left(", "/*left(", "--left("}};
}

}  // namespace orv::test
