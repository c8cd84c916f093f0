#include <gtest/gtest.h>

#include "command_line.h"
#include "search_rows.h"

namespace search {
namespace {

TEST(SearchCommandLine, PartsValuesAndHandles) {
    const struct {
        const char* text;
        qsizetype values, handles;
        const char* expected;
    } cases[] = {
        {"160-0022,東京都 新宿区,13104,5,6,7,8", 3, 3, "160-0022|東京都 新宿区|13104 5|6|7 8"},
        {",,,5,6,7,8", 3, 3, "|| 5|6|7 8"},
        {"1,東京,都,港区,13103,5,6,7,8", 3, 3, "1|東京,都,港区|13103 5|6|7 8"},
        {"5,6,7,8,9", 0, 4, " 5|6|7|8 9"},
        {"5,6,7,8", 0, 4, "no"},
        {"4,5,6,7,8,9", 0, 4, "no"},
        {"1,2,3,x,6,7,8", 3, 3, "no"},
        {"1,2,3,5,6,7,0", 3, 3, "no"},
        {"", 0, 4, "no"},
    };
    for (const auto& c : cases) {
        const auto line = readCommandLine(c.text, c.values, c.handles);
        const QString read =
            line ? line->values.join('|') + ' ' + line->handles.join('|') + ' ' + line->button : QStringLiteral("no");
        EXPECT_EQ(read.toStdString(), c.expected) << c.text;
    }
}

TEST(SearchRows, FindsByAnyWayOfTyping) {
    const auto rows = readRows(SAMPLE_FOLDER "/search/addresses.csv", 3, {0, 1});
    ASSERT_TRUE(rows);
    const auto found = [&rows](const char* typed) {
        QStringList codes;
        for (const Row& row : *rows) {
            if (matches(row, typed)) {
                codes << row.fields[2];
            }
        }
        return codes.join(' ').toStdString();
    };
    for (const char* typed : {"150-0043", "1500043", "１５０－００４３", " 道玄坂 ", "渋谷区　道玄坂", "道玄坂1丁目"}) {
        EXPECT_EQ(found(typed), "13113018001") << typed;
    }
    EXPECT_EQ(found("15000"), "13113013002 13113018001");
    EXPECT_EQ(found("存在しない町"), "");
    EXPECT_EQ(QString::fromStdString(found("")).split(' ').size(), rows->size());
}

TEST(SearchRows, TheSampleFilesFitTheFieldsOfAPage) {
    const auto addresses = readRows(SAMPLE_FOLDER "/search/addresses.csv", 3, {});
    const auto lines = readRows(SAMPLE_FOLDER "/search/lines.csv", 4, {});
    ASSERT_TRUE(addresses && lines);
    for (const Row& row : *addresses) {
        EXPECT_EQ(row.fields[0].size(), 8);
        EXPECT_EQ(row.fields[2].size(), 11) << row.fields[1].toStdString();
    }
    for (const Row& row : *lines) {
        EXPECT_EQ(row.fields[0].size(), 6);
        EXPECT_EQ(row.fields[2].size(), 3);
    }
    EXPECT_FALSE(readRows(SAMPLE_FOLDER "/search/none.csv", 3, {}));
    EXPECT_FALSE(readRows(SAMPLE_FOLDER "/search/lines.csv", 3, {})) << "rows of another file";
}

}  // namespace
}  // namespace search
