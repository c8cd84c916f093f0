// A save that is killed, at every moment at which the disk can look different: the store is as before the save, as
// after its first write or as after its second, and the next start has all photos and saves.

#include <sys/wait.h>

#include <algorithm>
#include <set>

#include "core/flow/deadly_disk.h"
#include "core/flow/save_test.h"

namespace orv {
namespace {

namespace fs = std::filesystem;
using Texts = std::vector<std::string>;

struct KilledSave {
    const char* name;
    const char* company;
    const char* before;   // done to the store before the program starts
    const char* started;  // and while the company is open
};

void PrintTo(const KilledSave& save, std::ostream* stream) { *stream << save.name; }

constexpr const char* kUnsent =
    "update TBL_CUSTOMER_INFO set PWD_CHG_FLG = '2' where USER_ID = '000004601'; "
    "update TBL_CUSTOMER_ADD set SEND_FLAG = TRUE where USER_ID = '000004601'";
constexpr const char* kToMarker =
    "update TBL_CUSTOMER_INFO set USER_ID = '---------' where USER_ID = '000004601'; "
    "update TBL_CUSTOMER_ADD set USER_ID = '---------', PHOTO_FILE1 = '', PHOTO_FILE2 = '', PHOTO_GRP1 = '', "
    "PHOTO_GRP2 = "
    "'' where USER_ID = '000004601'; "
    "update TBL_CUSTOMER_DATE set USER_ID = '---------' where USER_ID = '000004601'";
constexpr const char* kNoMarker =
    "delete from TBL_CUSTOMER_INFO where USER_ID = '---------'; delete from TBL_CUSTOMER_ADD where USER_ID = "
    "'---------'; delete from TBL_CUSTOMER_DATE where USER_ID = '---------'";

class KilledAtEveryMoment : public SaveTest, public testing::WithParamInterface<KilledSave> {
protected:
    static constexpr const char* kChosen = "C:\\ORV\\PHOTO\\new.jpg";
    static constexpr const char* kNumber = "000004700";

    KilledAtEveryMoment() {
        sql(GetParam().before);
        writeFile(files.nativePath(kChosen), "new photo");
        startOn(2, tail(GetParam().company));
        if (hasPhotos()) {
            page<frm_CompInp2>().txt_PhotoFilePath[0].setText(kChosen);
        }
        turnTo(0);
        edit("変更後");
        sql(GetParam().started);
        server.id = kNumber;
        copyFolders(office.folder.path(), kept.path());
    }
    static bool hasPhotos() { return GetParam().company == std::string(kCompany); }
    static std::string tail(const std::string& company) { return company + ",1,0"; }
    /// What a save can change.
    static void copyFolders(const fs::path& from, const fs::path& to) {
        for (const char* folder : {"C/ORV/MDB", "C/ORV/IMG", "C/ORV/TMP"}) {
            fs::remove_all(to / folder);
            fs::create_directories(to / folder);
            fs::copy(from / folder, to / folder, fs::copy_options::recursive);
        }
    }
    /// Runs `body` in a process of its own, on the office as it was kept; whether that came to its end, and well.
    static bool inOwnProcess(const std::function<void()>& body) {
        const pid_t child = ::fork();
        if (child == 0) {
            dieAt(kNever);
            body();
            ::_exit(HasFailure() ? 1 : 0);
        }
        int status = 0;
        ::waitpid(child, &status, 0);
        EXPECT_TRUE(WIFSIGNALED(status) ? WTERMSIG(status) == SIGKILL : WEXITSTATUS(status) == 0);
        return WIFEXITED(status);
    }
    /// All that the three tables hold.
    std::string state() {
        std::string all;
        for (const std::string& row : everything()) {
            all += row + "\n";
        }
        return all;
    }
    /// The three states that a save goes through.
    Texts states() {
        Texts seen{state()};
        const fs::path between = kept.path() / "between";
        inOwnProcess([&] {
            server.meanwhile = [&] { writeFile(between, state()); };
            save();
            EXPECT_EQ(shownIds(), Texts{"COS05574"});
        });
        seen.push_back(readFile(between));
        seen.push_back(state());
        return seen;
    }
    std::size_t filesIn(const char* folder) const {
        return static_cast<std::size_t>(
            std::count_if(fs::directory_iterator(office.folder.path() / folder), fs::directory_iterator(),
                          [](const fs::directory_entry& entry) { return entry.path().filename() != ".gitkeep"; }));
    }
    /// The next start on this computer, and a save.
    void expectTheNextRunWell() {
        endRun();
        const bool numbered = info("count(*)", kNumber) == "1";
        const std::string company = hasPhotos() ? kCompany : numbered ? kNumber : kMarker;
        const bool stored = info("count(*)", company) == "1";
        messages.shown.clear();
        start(tail(company));
        EXPECT_EQ(shownIds(), Texts{});
        if (hasPhotos()) {
            expectPhotosAtHand();
            const std::string photo = bytesOf(kWorking1);
            EXPECT_TRUE(photo == "new photo" || photo == readFile(kept.path() / "C/ORV/IMG/1" / kStored1));
            EXPECT_EQ(bytesOf(kWorking2), readFile(kept.path() / "C/ORV/IMG/2" / kStored2));
        }
        // Half copies go with the next copy into their folder.
        if (hasPhotos()) {
            writeFile(files.nativePath(kWorking1), "another photo");
        }
        save();
        EXPECT_EQ(shownIds(), Texts{stored ? "COS05574" : "COS19800"}) << "a page without a company is refused";
        EXPECT_EQ(filesIn("C/ORV/IMG/1"), 2u) << "this company's and another's, and nothing left over";
        EXPECT_EQ(filesIn("C/ORV/TMP"), hasPhotos() ? 2u : 0u);
    }

    TempFolder kept;
};

TEST_P(KilledAtEveryMoment, TheStoreIsAsBeforeOrBetweenOrBehindAndTheNextRunGoesOn) {
    const Texts whole = states();
    ASSERT_EQ(std::set<std::string>(whole.begin(), whole.end()).size(), 3u);
    std::set<std::ptrdiff_t> seen;
    bool cameToItsEnd = false;
    for (int moment = 1; !cameToItsEnd && !HasFailure(); ++moment) {
        SCOPED_TRACE("moment " + std::to_string(moment));
        copyFolders(kept.path(), office.folder.path());
        cameToItsEnd = inOwnProcess([&] {
            dieAt(moment);
            save();
        });
        const auto found = std::find(whole.begin(), whole.end(), state());
        EXPECT_NE(found, whole.end()) << "neither before nor between nor behind";
        seen.insert(found - whole.begin());
        if (!cameToItsEnd) {
            EXPECT_TRUE(inOwnProcess([&] { expectTheNextRunWell(); }));
        }
    }
    EXPECT_EQ(seen.size(), 3u) << "moments in each of the states";
}

INSTANTIATE_TEST_SUITE_P(Companies, KilledAtEveryMoment,
                         testing::Values(KilledSave{"known", "000004601", kUnsent, ""},
                                         KilledSave{"saved", "---------", kToMarker, ""},
                                         KilledSave{"unsaved", "---------", kToMarker, kNoMarker}),
                         [](const auto& one) { return std::string(one.param.name); });

}  // namespace
}  // namespace orv
