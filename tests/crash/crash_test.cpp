#include <process.h>

#include <cstdlib>
#include <set>

#include "support/fixture.h"
#include "support/interpose.h"

namespace orv {
namespace {

constexpr const char* kStored = "C:\\ORV\\IMG\\1\\000004601COS00000000_01.jpg";
constexpr const char* kChosen = "C:\\ORV\\PHOTO\\new.jpg";
constexpr const char* kFirst = "一回目";
constexpr const char* kFolder = "ORV_CRASH_FOLDER";
constexpr const char* kPoint = "ORV_CRASH_POINT";
constexpr const char* kStep = "ORV_CRASH_STEP";
constexpr int kUsualStep = 7;

constexpr int kKilled = 99;  // the exit code

/// The number of points until this process ends itself, or 0 if it does not.
int pointsLeft = 0;

void passPoint() {
    if (pointsLeft > 0 && --pointsLeft == 0) {
        ::TerminateProcess(::GetCurrentProcess(), kKilled);
    }
}

/// Ends this process, without any clean-up, at the given one of these points: before each call that changes a file or a
/// folder, and in the middle of each write. All other calls leave the files as they are.
void killAtPoint(int number) {
    interpose<[](auto, auto...) { passPoint(); }>(&::CreateDirectoryW);
    interpose<[](auto, auto...) { passPoint(); }>(&::MoveFileExW);
    interpose<[](auto, auto...) { passPoint(); }>(&::DeleteFileW);
    interpose<[](auto, auto...) { passPoint(); }>(&::RemoveDirectoryW);
    interpose<[](auto, auto...) { passPoint(); }>(&::SetEndOfFile);
    interpose<[](auto, auto...) { passPoint(); }>(&::FlushFileBuffers);
    interpose<[](auto, auto, auto, auto, auto, DWORD disposition, auto...) {
        if (disposition != OPEN_EXISTING) passPoint();
    }>(&::CreateFileW);
    interpose<[](auto write, auto file, auto bytes, DWORD size, auto... rest) {
        passPoint();
        if (pointsLeft == 1) write(file, bytes, size / 2, rest...);
        passPoint();
    }>(&::WriteFile);
    pointsLeft = number;
}

/// An undisturbed scenario.
struct Undisturbed {
    std::string oldPhoto;
    std::set<Texts> states;  // of the three tables
    std::ptrdiff_t names = 0;
};

/// Opens a company, edits it, saves it with a photo, and leaves. The server refuses the photos, which is logged.
class Scenario : public SystemTest {
public:
    Scenario() {
        sql("update TBL_CUSTOMER_INFO set PWD_CHG_FLG = '2' where USER_ID = '000004601'");
        sql("update TBL_CUSTOMER_ADD set SEND_FLAG = TRUE where USER_ID = '000004601'");
        http.answers = {{500, "refused"}, {500, "refused"}};
    }
    /// Moves the office of another run here.
    explicit Scenario(const std::filesystem::path& root) : Scenario() {
        std::filesystem::remove_all(office.root() + "/C");
        std::filesystem::rename(root / "C", office.root() + "/C");
    }
    void TestBody() override {}

    void run(const std::string& words) {
        writeFile(files.nativePath(kChosen), words);
        startOn(0);
        EXPECT_EQ(page<frm_CompInp0>().txt_Company_Name.text(), info("COMPANY_NAME"));
        page<frm_CompInp0>().txt_Company_Name.setText(words);
        turnTo(2);
        page<frm_CompInp2>().txt_Day_Off.setText(words);
        page<frm_CompInp2>().txt_PhotoFilePath[0].setText(kChosen);
        save();
        expectShown("COS05574", {});
        EXPECT_EQ(info("COMPANY_NAME") + add("DAY_OFF") + photo(), words + words + words);
        leave();
        EXPECT_EQ(locks(), Texts{});
    }
    Undisturbed learn() {
        Undisturbed fine{photo(), {everything()}};
        server.meanwhile = [&] { fine.states.insert(everything()); };
        run(kFirst);
        fine.states.insert(everything());
        fine.names = countNames();
        return fine;
    }
    void expectIntact(const Undisturbed& fine) {
        EXPECT_EQ(one("pragma integrity_check"), "ok");
        EXPECT_TRUE(fine.states.contains(everything())) << info("COMPANY_NAME") << add("DAY_OFF");
        EXPECT_LE(locks().size(), 1U);
        EXPECT_TRUE(photo() == kFirst || (photo() == fine.oldPhoto && info("COMPANY_NAME") != kFirst)) << photo();
    }
    /// The records of this run begin their own lines, and no run has left another file.
    void expectTidy(const Undisturbed& fine) {
        const std::string refused = record("500", "[ RH_ImageDataTransfr ] refused");
        EXPECT_TRUE(("\r\n" + log()).ends_with("\r\n" + refused + refused)) << log();
        EXPECT_EQ(countNames(), fine.names);
    }

private:
    /// A new photo is complete next to its place before the old one is removed.
    std::string photo() const { return readBytes(files.exists(kStored) ? kStored : std::string(kStored) + ".new"); }
    std::ptrdiff_t countNames() const {
        return std::distance(std::filesystem::recursive_directory_iterator(office.root() + "/C"), {});
    }
};

TEST(CrashScenario, DISABLED_EndsItself) {
    ::_putenv_s("TMP", std::getenv(kFolder));
    Scenario scenario;
    killAtPoint(std::atoi(std::getenv(kPoint)));
    scenario.run(kFirst);
}

/// Runs that test in its own process, with a folder for its temporary files. Returns the exit code.
std::intptr_t runAndKill(const std::string& folder, int point) {
    ::_putenv_s(kFolder, folder.c_str());
    ::_putenv_s(kPoint, std::to_string(point).c_str());
    const std::string name = "\"" + std::string(_pgmptr) + "\"";
    return ::_spawnl(_P_WAIT, _pgmptr, name.c_str(), "--gtest_filter=CrashScenario.*",
                     "--gtest_also_run_disabled_tests", "--gtest_brief=1", nullptr);
}

std::filesystem::path officeIn(const std::filesystem::path& folder) {
    std::filesystem::directory_iterator entry(folder);
    while (!std::filesystem::exists(entry->path() / "C")) ++entry;
    return entry->path();
}

TEST(Crash, AtAnyPointLosesAndMixesNothingAndTheNextRunSaves) {
    const Undisturbed fine = Scenario().learn();
    EXPECT_EQ(fine.states.size(), 3U) << "before the save, after its first write and after its second";
    const char* const given = std::getenv(kStep);
    const int step = given != nullptr ? std::max(1, std::atoi(given)) : kUsualStep;
    int kills = 0;
    int journals = 0;
    for (std::intptr_t code = kKilled; code == kKilled;) {
        const int point = kills * step + (step + 1) / 2;
        SCOPED_TRACE("killed at point " + std::to_string(point));
        const TempFolder folder;
        code = runAndKill(folder.path().string(), point);
        if (code != kKilled) {
            EXPECT_EQ(code, 0) << "not killed, and not complete: " << ::GetLastError();
            continue;
        }
        ++kills;
        const std::filesystem::path office = officeIn(folder.path());
        journals += std::filesystem::exists(office / "C/ORV/MDB/ORVESTATE.MDB-journal") ? 1 : 0;
        const TempFolder copy;  // the next run finds the journal of an incomplete transaction
        copyFolder(office, copy.path());
        Scenario(copy.path()).expectIntact(fine);
        Scenario next(office);
        next.run("二回目");
        next.expectTidy(fine);
    }
    EXPECT_GT(journals, 0) << "no kill within a transaction of the store";
    std::cout << kills << " kills, " << journals << " of them within a transaction of the store\n";
}

}  // namespace
}  // namespace orv
