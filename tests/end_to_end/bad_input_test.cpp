#include <sys/stat.h>

#include "end_to_end.h"

namespace desk {
namespace {

/// Something broken, the argument, and what the err log then holds; an empty line of log: nothing.
struct BadInput {
    const char* name;
    std::function<void(const Office&)> damage;
    std::string argument;
    std::string logged;
    int menuStarts;
};

void PrintTo(const BadInput& input, std::ostream* stream) { *stream << input.name; }

void write(const std::filesystem::path& file, const std::string& content) {
    std::ofstream(file, std::ios::binary) << content;
}

std::string randomBytes(std::size_t count) {
    std::string bytes;
    unsigned state = 12345;
    for (std::size_t i = 0; i < count; ++i) {
        state = state * 1103515245 + 12345;
        bytes += static_cast<char>(state >> 16);
    }
    return bytes;
}

const auto kNothing = [](const Office&) {};

const std::vector<BadInput> kInputs{
    {"blank", kNothing, "   ", "EUSR7897,会社情報起動引数が取得できませんでした。", 0},
    {"oneElement", kNothing, "000004601", "9,[ COS main ]インデックスが有効範囲にありません。", 1},
    {"twoElements", kNothing, "000004601,1", "9,[ COS main ]インデックスが有効範囲にありません。", 1},
    {"noNumber", kNothing, "000004601,1,x", "13,[ COS main ]型が一致しません。", 1},
    {"unknownCompany", kNothing, "999999999,1,0", "ECOS5120,DBデータ取得にしっぱいしました。", 1},
    {"apostrophe", kNothing, "'; drop table TBL_LOCK; --,1,0", "[ PF_DataLockCheck ] ", 1},
    {"longArgument", kNothing, std::string(100000, '9') + ",1,0", "ECOS5120,", 1},
    {"toolkitOption", kNothing, "-platform,1,0", "ECOS5120,", 1},
    {"noAddRow", kNothing, "000004605,1,0", "94,[ PF_SetCompanyDataStructureChng ] ", 1},
    {"storeMissing", [](const Office& o) { std::filesystem::remove(o.store()); }, "000004601,1,0", "DBFILE01,", 1},
    {"storeEmpty", [](const Office& o) { write(o.store(), ""); }, "000004601,1,0", "DBFILE05,", 1},
    {"storeRandom", [](const Office& o) { write(o.store(), randomBytes(100000)); }, "000004601,1,0", "DBFILE07,", 1},
    {"storeJet",
     [](const Office& o) { write(o.store(), std::string("\0\1\0\0Standard Jet DB\0", 20) + randomBytes(5000)); },
     "000004601,1,0", "DBFILE06,", 1},
    {"storeFolder",
     [](const Office& o) {
         std::filesystem::remove(o.store());
         std::filesystem::create_directory(o.store());
     },
     "000004601,1,0", "DBFILE02,", 1},
};

std::filesystem::path settings(const Office& office) { return office.drive() / "ORV/SYS/system.ini"; }

/// Without settings the names of files are bare, and the store is looked for beside the program.
const std::vector<BadInput> kSettings{
    {"absent", [](const Office& o) { std::filesystem::remove(settings(o)); }, "000004601,1,0", "DBFILE01,", 1},
    {"empty", [](const Office& o) { write(settings(o), ""); }, "000004601,1,0", "DBFILE01,", 1},
    {"random", [](const Office& o) { write(settings(o), randomBytes(5000)); }, "000004601,1,0", "DBFILE01,", 1},
    {"huge", [](const Office& o) { write(settings(o), randomBytes(50'000'000)); }, "000004601,1,0", "DBFILE01,", 1},
    {"folder",
     [](const Office& o) {
         std::filesystem::remove(settings(o));
         std::filesystem::create_directory(settings(o));
     },
     "000004601,1,0", "DBFILE01,", 1},
};

class BadStart : public EndToEnd, public ::testing::WithParamInterface<BadInput> {};

TEST_P(BadStart, EndsInAMessageAndALogRecord) {
    const BadInput& input = GetParam();
    input.damage(*office_);
    Terminal desk = terminal("DESK-01");
    desk.start(input.argument);
    answer(desk, "Return");
    EXPECT_EQ(desk.waitForEnd(), 0);
    EXPECT_TRUE(contains(office_->errLog(), input.logged)) << office_->errLog();
    EXPECT_TRUE(eventually([&] { return office_->menuStarts() == input.menuStarts; })) << office_->menuStarts();
    if (std::filesystem::is_regular_file(office_->store()) && !contains(input.logged, "DBFILE")) {
        EXPECT_EQ(locks(), "");
        EXPECT_EQ(office_->ask("select count(*) from TBL_CUSTOMER_INFO"), "6");
    }
}

INSTANTIATE_TEST_SUITE_P(Table, BadStart, ::testing::ValuesIn(kInputs),
                         [](const auto& input) { return std::string(input.param.name); });
INSTANTIATE_TEST_SUITE_P(Settings, BadStart, ::testing::ValuesIn(kSettings),
                         [](const auto& input) { return std::string(input.param.name); });

}  // namespace
}  // namespace desk
