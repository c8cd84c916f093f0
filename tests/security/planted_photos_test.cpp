#include <fcntl.h>

#include <algorithm>

#include "another_user.h"
#include "core/flow/photo_files.h"
#include "support/catch_failure.h"
#include "support/fixture.h"

namespace orv {
namespace {

namespace fs = std::filesystem;

constexpr const char* kPrivate = "a scan of the operator's passport";
constexpr const char* kName = "000004601COS00000000_01.jpg";
constexpr const char* kWorking = "C:\\ORV\\TMP\\TmpImg_1";
constexpr const char* kStored = "C:\\ORV\\IMG\\1\\000004601COS00000000_01.jpg";

class PhotoFolders : public SystemTest {
protected:
    PhotoFolders() { settings.set("NET", "TRANSFERTYPE", "HTTP"); }

    /// Runs a working day with this company. A failed start ends it.
    void openAndSave(const std::function<void()>& atWork = [] {}) {
        start();
        if (forms.activeForm() != nullptr) {
            turnTo(2);
            atWork();
            save();
        }
    }
    std::ptrdiff_t runFolders() {
        return std::count_if(fs::directory_iterator(tmp), {}, [](const auto& entry) { return entry.is_directory(); });
    }

    const fs::path orv = office.root() + "/C/ORV";
    const fs::path img = orv / "IMG/1";
    const fs::path tmp = orv / "TMP";
};

struct Plant {
    const char* what;
    /// A link to the private file, or a link in place of a folder, created before the start.
    const char* before = nullptr;
    const char* folder = nullptr;
    /// The same, created while the company is on the screen. `chosen`: the operator chooses it.
    const char* atWork = nullptr;
    bool chosen = false;
    bool hardLink = false;
};

class PlantedPhotos : public PhotoFolders, public testing::WithParamInterface<Plant> {
protected:
    void plant(const fs::path& place) {
        fs::remove(place);
        GetParam().hardLink ? fs::create_hard_link(owned, place) : fs::create_symlink(owned, place);
    }
    /// True if a copy of the private file is readable by others or was sent.
    bool isOut() {
        bool found = false;
        for (const auto& entry : fs::recursive_directory_iterator(orv / "IMG")) {
            const bool isCopy =
                entry.symlink_status().type() == fs::file_type::regular && !fs::equivalent(entry, owned);
            found = found || (isCopy && readFile(entry) == kPrivate);
        }
        for (const auto& sent : http.sent) {
            found = found || readFile(paths.toNative(sent.file)) == kPrivate;
        }
        return found;
    }

    const fs::path owned = office.folder.write(std::string("home/") + kName, kPrivate);
};

TEST_P(PlantedPhotos, LeadToNoFileOfTheOperator) {
    const Plant& c = GetParam();
    if (c.folder != nullptr) {
        fs::remove_all(orv / c.folder);
        fs::create_directory_symlink(owned.parent_path(), orv / c.folder);
    }
    if (c.before != nullptr) {
        fs::remove(img / kName);
        plant(orv / c.before);
    }
    openAndSave([&] {
        if (c.atWork != nullptr) {
            plant(orv / c.atWork);
        }
        if (c.chosen) {
            page<frm_CompInp2>().pic_PhotoFile[0].drop(orv / c.atWork);
        }
    });
    EXPECT_FALSE(isOut());
    EXPECT_EQ(readFile(owned), kPrivate);
    EXPECT_EQ(office.folder.countIn("home"), 1) << "nothing was put next to it either";
}

INSTANTIATE_TEST_SUITE_P(
    Links, PlantedPhotos,
    testing::Values(Plant{.what = "WorkingCopy", .atWork = "TMP/TmpImg_1"},
                    Plant{.what = "StoredPhoto", .before = "IMG/1/000004601COS00000000_01.jpg"},
                    Plant{.what = "AnotherName", .before = "IMG/1/000004601COS00000000_01.jpg", .hardLink = true},
                    Plant{.what = "PhotoOnItsWay", .before = "IMG/1/000004601COS00000000_01.jpg.new"},
                    Plant{.what = "StoredFolder", .folder = "IMG/1"}, Plant{.what = "WorkFolder", .folder = "TMP"},
                    Plant{.what = "Chosen", .atWork = "TMP/new.jpg", .chosen = true}),
    [](const auto& row) { return row.param.what; });

TEST_F(PhotoFolders, ALinkAtTheNameOfANewFileLeadsNowhere) {
    const fs::path owned = office.folder.write("home/letter", kPrivate);
    const std::string name = ".orv-" + std::to_string(::getpid()) + "-";
    for (int number = 1; number < 3000; ++number) {
        fs::create_symlink(number % 2 == 0 ? owned : owned.parent_path() / "new",
                           img / (name + std::to_string(number) + ".tmp"));
    }
    files.publish("C:\\ORV\\IMG\\2\\000004601COS00000000_02.jpg", kStored);
    EXPECT_EQ(readBytes(kStored), readBytes("C:\\ORV\\IMG\\2\\000004601COS00000000_02.jpg"));
    EXPECT_EQ(readFile(owned), kPrivate);
    EXPECT_EQ(office.folder.countIn("home"), 1);
}

/// A row whose photo name is not a file in the folder of the photos.
TEST_F(PhotoFolders, ANameThatIsAPathIsAPhotoThatIsGone) {
    const std::string settingsBytes = readFile(orv / "SYS/system.ini");
    writeFile(orv / "SYS/system.ini.new", "left by another program");
    for (const char* name :
         {"..\\..\\SYS\\system.ini", "../../SYS/system.ini", "C:\\ORV\\SYS\\system.ini", "..", "."}) {
        const std::string company = "\r\n4601" + std::string(name);  // another line for the log
        for (const std::string table : {"INFO", "ADD"}) {
            sql("update TBL_CUSTOMER_" + table + " set USER_ID = '" + company + "' where USER_ID like '%4601%'");
        }
        sql("update TBL_CUSTOMER_ADD set PHOTO_FILE1 = '" + std::string(name) + "' where USER_ID = '" + company + "'");
        load(company);
        EXPECT_EQ(tCustomerInfo.PHOTO_FILE1, "") << name;
        EXPECT_NE(log().find(",PHOTO001,"), std::string::npos) << name;
        EXPECT_EQ(std::ranges::count(log(), '\n'), 1) << log();
        EXPECT_EQ(readFile(orv / "SYS/system.ini"), settingsBytes);
        EXPECT_TRUE(fs::exists(orv / "SYS/system.ini.new")) << "a load neither renames nor deletes for it";
        fs::remove(com().LogErrFile().empty() ? "" : files.nativePath(com().LogErrFile()));
    }
}

TEST_F(PhotoFolders, ACompanyNumberThatIsAPathPlacesNoPhoto) {
    start();
    tCustomerInfo.USER_ID = "..\\..\\SYS\\x";
    const std::ptrdiff_t before = office.folder.countIn("C/ORV/SYS");
    EXPECT_FALSE(PF_SaveCompanyDataOther());
    EXPECT_EQ(gErrCode, "52");
    EXPECT_EQ(office.folder.countIn("C/ORV/SYS"), before);
}

TEST_F(PhotoFolders, ARowCanNotFinishOrDropThePhotoOfAnotherCompany) {
    const fs::path other = img / "000004602COS00000000_01.jpg.new";
    writeFile(other, "being replaced on another terminal");
    sql("update TBL_CUSTOMER_ADD set PHOTO_FILE1 = '000004602COS00000000_01.jpg' where USER_ID = '000004601'");
    load();
    EXPECT_TRUE(fs::exists(other));
}

/// Two runs on one computer. An attacker who exchanges the folder of a run uses the same way.
TEST_F(PhotoFolders, ChangesInTmpDoNotReachTheWorkingCopy) {
    const std::string own = readBytes(kStored);
    startOn(2);
    SystemFiles otherRun(paths);
    otherRun.workIn(com().TmpFolder());
    files.copy("C:\\ORV\\IMG\\2\\000004601COS00000000_02.jpg", "C:\\ORV\\PHOTO.jpg");
    otherRun.copy("C:\\ORV\\PHOTO.jpg", kWorking);
    const fs::path folder = fs::path(files.nativePath(kWorking)).parent_path();
    fs::rename(folder, tmp / "away");
    fs::create_directory(folder);
    writeFile(folder / "TmpImg_1", "the attacker's");
    save();
    expectShown("COS05574", {});
    EXPECT_EQ(readBytes(kStored), own);
    EXPECT_NE(readBytes("C:\\ORV\\PHOTO.jpg"), own) << "the other run had another photo";
}

TEST_F(PhotoFolders, TheNextStartRemovesOnlyTheFilesOfDeadRuns) {
    start();
    const fs::path living = fs::path(files.nativePath(kWorking)).parent_path();
    const auto leaveFile = [&] {
        SystemFiles run(paths);
        run.workIn("C:\\ORV\\TMP\\");
        run.copy(kStored, kWorking);
    };
    leaveFile();
    fs::create_directories(tmp / ".orv-run-of the clerk/notes");
    EXPECT_EQ(runFolders(), 3);
    leaveFile();
    EXPECT_EQ(runFolders(), 3) << "the first has gone";
    EXPECT_TRUE(fs::exists(living / "TmpImg_1") && fs::exists(tmp / ".orv-run-of the clerk/notes"));
    fs::remove_all(living);
    EXPECT_EQ(catchFailure([&] { files.copy(kStored, kWorking); }), 0)
        << "another program has emptied TMP: a new one is made";
}

TEST_F(PhotoFolders, AnotherUserNeitherReadsNorRemovesAWorkingCopy) {
    if (!canBeAnotherUser()) {
        GTEST_SKIP() << "a second user can only be had by root";
    }
    start();
    fs::permissions(tmp, fs::perms::all);
    const std::string copy = files.nativePath(kWorking);
    EXPECT_EQ(asAnotherUser([&] {
                  SystemFiles(paths).workIn("C:\\ORV\\TMP\\");
                  return ::open(copy.c_str(), O_RDONLY) < 0 && errno == EACCES;
              }),
              1);
    EXPECT_TRUE(fs::exists(copy));
    fs::remove_all(fs::path(copy).parent_path());
    fs::create_directory(tmp / ".orv-run-1");
    fs::permissions(tmp / ".orv-run-1", fs::perms::all);
    EXPECT_EQ(asAnotherUser([&] {
                  SystemFiles(paths).workIn("C:\\ORV\\TMP\\");
                  return fs::exists(tmp / ".orv-run-1");
              }),
              1)
        << "a folder of another user is not removed";
}

}  // namespace
}  // namespace orv
