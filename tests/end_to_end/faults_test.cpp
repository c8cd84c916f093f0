// Faults in the program's environment, and their effect on messages, log and store, in the real window.

#include <sqlite3.h>

#include <random>

#include "adapters/text/message_table.h"
#include "end_to_end.h"

namespace ui_driver {
namespace {

namespace fs = std::filesystem;

constexpr const char* kCompany = "000004601,1,0";
constexpr const char* kReadOnly = "データベースが読み取り専用のため、書き込めません。";

using orv::writeFile;

std::string randomBytes(std::size_t count) {
    std::string bytes(count, '\0');
    std::mt19937 random(1);
    std::generate(bytes.begin(), bytes.end(), [&] { return static_cast<char>(random()); });
    return bytes;
}

/// Runs the program as a user without root's rights, in an office open to all users until a fault restricts it.
class Faults : public EndToEnd {
protected:
    Faults() { readOutput({"chmod", "-R", "a+rwX", folder_.string()}); }
    ~Faults() override { readOutput({"chmod", "-R", "u+rwX", folder_.string()}); }

    /// Returns the store's content, or the file's bytes if it is not a store.
    std::string store() const {
        const std::string dump = readOutput({"sqlite3", office_->store().string(), ".dump"});
        return dump.size() > 100 ? dump : orv::readFile(office_->store());
    }
    void expectShown(Terminal& terminal, const std::string& id, const std::vector<std::string>& values) {
        const std::string expected = orv::expanded(orv::MessageTable().messages().find(id)->second.text, values);
        ASSERT_TRUE(terminal.waitForNotice());
        EXPECT_EQ(terminal.noticeText(), expected);
        terminal.key("Return");
        ASSERT_TRUE(terminal.isNoticeGone());
    }
    bool logged(const std::string& code, const std::string& text) const {
        return contains(office_->errLog(), "," + code + "," + text + "\r\n");
    }
};

// ---- before the company is open

struct StartFault {
    const char* name;
    void (*damage)(const Office&);
    std::string argument;
    std::string code, text;
    int menuStarts = 1;
};

void PrintTo(const StartFault& fault, std::ostream* stream) { *stream << fault.name; }

constexpr auto kNothing = [](const Office&) {};
constexpr const char* kMissing = "データベースのファイルが見つかりません。";
constexpr const char* kUnknown = "DBデータ取得にしっぱいしました。";

fs::path settings(const Office& office) { return office.drive() / "ORV/SYS/system.ini"; }

const std::vector<StartFault> kStartFaults{
    {"blank", kNothing, "   ", "EUSR7897", "会社情報起動引数が取得できませんでした。", 0},
    {"unknownCompany", kNothing, "999999999,1,0", "ECOS5120", kUnknown},
    {"apostrophe", kNothing, "'; drop table TBL_LOCK; --,1,0", "DBSQL03",
     "[ PF_DataLockCheck ] データベースへの命令は一度に一つだけ実行できます。"},
    {"toolkitOption", kNothing, "-platform,1,0", "ECOS5120", kUnknown},

    {"storeMissing", [](const Office& o) { fs::remove(o.store()); }, kCompany, "DBFILE01", kMissing},
    {"storeUnreadable", [](const Office& o) { fs::permissions(o.store(), fs::perms::none); }, kCompany, "DBFILE04",
     "データベースのファイルを読む権限がありません。"},
    {"storeJet",
     [](const Office& o) { writeFile(o.store(), std::string("\0\1\0\0Standard Jet DB\0", 20) + randomBytes(5000)); },
     kCompany, "DBFILE06",
     "データベースのファイルが以前の形式（Jet）です。新しい形式へ移したファイルを置いてください。"},
    {"storeDamaged",
     [](const Office& o) {
         std::fstream(o.store(), std::ios::in | std::ios::out | std::ios::binary).seekp(100) << randomBytes(20000);
     },
     kCompany, "DB11", "データベースのファイルが壊れています。バックアップから戻してください。"},
    {"storeReadOnly", [](const Office& o) { fs::permissions(o.store(), fs::perms(0444)); }, kCompany, "DB8",
     std::string("[ PF_DataLock ] ") + kReadOnly},

    {"storeOfAnOlderVersion",
     [](const Office& o) {
         readOutput({"sqlite3", o.store(), "alter table TBL_CUSTOMER_ADD drop column SEND_FLAG"});
     },
     kCompany, "DBCOL01",
     "この版のプログラムで使う列（SEND_FLAG）が、データベースにありません。"
     "管理者に「orv_store upgrade」の実行を依頼してください。"},

    // Without settings the file names are bare, and the store is searched in the program's folder.
    {"settingsAbsent", [](const Office& o) { fs::remove(settings(o)); }, kCompany, "DBFILE01", kMissing},
};

class AtTheStart : public Faults, public ::testing::WithParamInterface<StartFault> {};

TEST_P(AtTheStart, TheFailureIsReportedAndTheMenuIsStarted) {
    const StartFault& fault = GetParam();
    fault.damage(*office_);
    const std::string before = fs::is_regular_file(office_->store()) ? store() : "";
    Terminal terminal = makeTerminal("DESK-01");
    terminal.startUnprivileged(fault.argument);
    expectShown(terminal, "COSERR01", {fault.code, fault.text});
    EXPECT_EQ(terminal.waitForEnd(), 0);
    EXPECT_TRUE(logged(fault.code, fault.text)) << office_->errLog();
    EXPECT_TRUE(eventually([&] { return office_->menuStarts() == fault.menuStarts; })) << office_->menuStarts();
    EXPECT_TRUE(before.empty() || store() == before);
}

TEST_F(Faults, ASlowStoreIsAwaitedInAWindow) {
    const std::string lock = "import signal, sqlite3; store = sqlite3.connect('" + office_->store().string() +
                             "', timeout=180); store.execute('begin exclusive'); signal.pause()";
    std::optional<Process> owner(std::in_place, std::vector<std::string>{"python3", "-c", lock});
    ASSERT_TRUE(eventually([&] { return office_->ask("select 1 from TBL_LOCK").empty(); }));
    Terminal terminal = makeTerminal("DESK-01");
    terminal.startUnprivileged(kCompany);
    EXPECT_TRUE(terminal.waitForWindow("会社情報を開いています…"));
    EXPECT_TRUE(eventually([&] { return terminal.coloursShown() > 2; }));
    owner.reset();
    EXPECT_TRUE(terminal.waitForPage(0));
}

TEST_F(Faults, ASlowSaveIsPaintedAndTakesNoInput) {
    Terminal terminal = makeTerminal("DESK-01");
    terminal.startUnprivileged(kCompany);
    ASSERT_TRUE(terminal.waitForPage(0));
    const int colours = terminal.coloursShown();
    server_->misbehave("companies:delay=15000");
    terminal.click("btm_Save");
    ASSERT_TRUE(eventually([&] { return contains(server_->log(), "/cussend/ "); }));
    terminal.minimise();
    terminal.bringToFront();
    EXPECT_TRUE(eventually([&] { return terminal.coloursShown() > colours / 2; })) << terminal.coloursShown();
    {
        const Process cover({"bash", "-c", "exec xev -geometry 1200x740+20+20 >/dev/null"},
                            {{"DISPLAY", display_.name()}});
        EXPECT_TRUE(eventually([&] { return terminal.coloursShown() < colours / 2; })) << "covered";
    }
    EXPECT_TRUE(eventually([&] { return terminal.coloursShown() > colours / 2; })) << terminal.coloursShown();
    terminal.click("btm_ChangePage", 1);
    terminal.click("btm_Back_Menu");
    terminal.key("alt+2 ctrl+s alt+F4");
    EXPECT_FALSE(contains(server_->log(), "/cussend/register 200")) << "the save was over before the clicks";
    expectShown(terminal, "COS05574", {});
    ASSERT_TRUE(terminal.isNoticeGone());
    EXPECT_TRUE(terminal.waitForPage(0)) << "no click was done afterwards";
    EXPECT_EQ(locks(), "000004601 DESK-01");
}

// ---- a photo

TEST_F(Faults, APhotoThatIsNoPictureCostsNothingElse) {
    writeFile(office_->drive() / "ORV/IMG/1/000004601COS00000000_01.jpg", "no picture");
    const std::string before = field("DAY_OFF || PHOTO_FILE1");
    Terminal terminal = makeTerminal("DESK-01");
    terminal.startUnprivileged(kCompany);
    ASSERT_TRUE(terminal.waitForPage(0));
    terminal.enter("txt_Tanto_Name", "変更　太郎");
    terminal.click("btm_ChangePage", 2);
    expectShown(
        terminal, "COSERR01",
        {"20103",
         "[ PF_Thumbnail ] 画像ファイルではないか、対応していない形式です。(JPEG、PNG、BMP、GIF、TIFFが使えます。)"});
    ASSERT_TRUE(terminal.waitForPage(2));
    terminal.click("btm_ChangePage", 0);
    ASSERT_TRUE(terminal.waitForPage(0));
    terminal.click("btm_Save");
    expectShown(terminal, "COS05574", {});
    EXPECT_EQ(field("TANTO_NAME"), "変更　太郎");
    EXPECT_EQ(field("DAY_OFF || PHOTO_FILE1"), before);
}

INSTANTIATE_TEST_SUITE_P(Table, AtTheStart, ::testing::ValuesIn(kStartFaults),
                         [](const auto& fault) { return std::string(fault.param.name); });

}  // namespace
}  // namespace ui_driver
