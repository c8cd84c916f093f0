// Reads the program's windows through the desktop's accessibility bus, like a screen reader. expected.txt lists the
// controls of each window: role, name and description.
#include <set>
#include <sstream>

#include "end_to_end/end_to_end.h"
#include "version.h"

namespace ui_driver {
namespace {

namespace fs = std::filesystem;

const fs::path kHere = SCREEN_READER;

/// Returns the lines of expected.txt under "== name".
std::string expected(const std::string& name) {
    std::string text = "\n" + orv::readFile(kHere / "expected.txt") + "\n== ";
    text.replace(text.find("VERSION"), 7, orv::kVersion);
    const std::string heading = "\n== " + name + "\n";
    const std::size_t begin = text.find(heading) + heading.size();
    return begin < heading.size() ? "" : text.substr(begin, text.find("\n\n== ", begin) - begin);
}

class ScreenReader : public EndToEnd {
protected:
    ScreenReader() {
        EXPECT_TRUE(eventually([&] { return fs::exists(folder_ / "bus"); })) << "the session bus";
        const std::string listen = "exec " + readScreen("announcements") + " >" + announcements_.string();
        listener_ = std::make_unique<Process>(std::vector<std::string>{"bash", "-c", listen}, environment_);
        expectAnnounced("listening");
    }

    static std::string readScreen(const std::string& what) {
        return "/usr/bin/python3 " + (kHere / "reader.py ").string() + what;
    }
    std::string window() const { return readOutput({"bash", "-c", "exec " + readScreen("window")}, environment_); }
    /// Checks that the active window is read as the table says, and that no two of its inputs have the same name.
    void expectRead(const std::string& name) const {
        const std::string wanted = expected(name);
        std::string read;
        EXPECT_TRUE(eventually([&] { return (read = window()) == wanted; })) << name << ":\n" << read;
        std::istringstream lines(read);
        std::set<std::string> names;
        for (std::string role, rest; std::getline(lines, role, '|') && std::getline(lines, rest);) {
            EXPECT_TRUE(contains(role, "label") || names.insert(rest.substr(0, rest.find(" |"))).second) << rest;
        }
    }
    void expectLine(const std::string& line) const {
        EXPECT_TRUE(eventually([&] { return contains(window() + "\n", line + "\n"); })) << window();
    }
    void expectAnnounced(const std::string& line) const {
        EXPECT_TRUE(eventually([&] { return contains(orv::readFile(announcements_), line); })) << line;
    }

    fs::path announcements_ = folder_ / "announcements";
    Environment environment_{{"DISPLAY", display_.name()},
                             {"HOME", folder_.string()},
                             {"XDG_RUNTIME_DIR", (office_->folder() / "runtime").string()},
                             {"LANG", "C.UTF-8"},
                             {"QT_LINUX_ACCESSIBILITY_ALWAYS_ON", "1"},
                             {"DBUS_SESSION_BUS_ADDRESS", "unix:path=" + (folder_ / "bus").string()}};
    /// Starts the accessibility bus on demand.
    Process bus_{{"dbus-daemon", "--session", "--nofork", "--address=" + environment_["DBUS_SESSION_BUS_ADDRESS"]},
                 environment_};
    std::unique_ptr<Process> listener_;
    Terminal terminal{*office_, display_.name(), "DESK-01", environment_};
};

TEST_F(ScreenReader, ReadsOutPagesAndDialogs) {
    terminal.start("000004601,1,0");
    ASSERT_TRUE(terminal.waitForPage(0));
    expectRead("page 0");
    for (const int page : {1, 3, 4, 2}) {
        turnTo(terminal, page);
        expectRead("page " + std::to_string(page));
    }
    const auto expectDialog = [&](const char* button, const char* title, int page) {
        terminal.click(button);
        ASSERT_TRUE(terminal.waitForWindow(title));
        expectRead(title);
        terminal.key("Escape");
        ASSERT_TRUE(terminal.waitForPage(page));
    };
    expectDialog("btn_SelectRail", "沿線検索", 2);
    const std::string photo = office_->copyPhoto();
    terminal.click("btm_PhotoSelect", 0);
    ASSERT_TRUE(terminal.waitForWindow("ファイルを開く"));
    expectRead("open dialog");
    terminal.typeAscii(photo);
    terminal.key("Return");
    ASSERT_TRUE(terminal.waitForConfirmation());
    expectRead("confirmation");
    terminal.key("F1");
    ASSERT_TRUE(terminal.waitForWindow(".* - ヘルプ"));
    expectRead("help");
    terminal.key("Escape");
    ASSERT_TRUE(terminal.waitForConfirmation());
    terminal.key("Escape");
    ASSERT_TRUE(terminal.waitForPage(2));
    turnTo(terminal, 0);
    expectDialog("btm_SearchOfficeAddress", "住所検索", 0);
    expectDialog("btm_ChangePW", "パスワード変更", 0);
    terminal.click("btm_Back_Menu");
    ASSERT_TRUE(terminal.waitForNotice());
    expectRead("question");
}

TEST_F(ScreenReader, AnnouncesRefusalsAndProgress) {
    terminal.start("000004601,1,0");
    ASSERT_TRUE(terminal.waitForPage(0));
    terminal.click("txt_Tel_No1");
    terminal.typeAscii("x");
    expectAnnounced("半角の数字と記号で入力してください。");
    expectLine("text | TEL | 半角の数字と記号で入力してください。 入力が必要です。");
    terminal.key("Home");
    expectLine("text | TEL | 入力が必要です。");
    server_->misbehave("companies:delay=4000");
    terminal.click("btm_Save");
    expectAnnounced("会社情報を送信しています…");
    answer(terminal, 0);
    terminal.enter("txt_Company_Name", "　");
    terminal.click("btm_Save");
    ASSERT_TRUE(terminal.waitForNotice());
    expectRead("refused save");
    answer(terminal, 0);
    expectLine("text | 会社名 | 会社名が未入力です。 入力が必要です。");
}

}  // namespace
}  // namespace ui_driver
