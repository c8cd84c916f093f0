#include "adapters/system/system_files.h"

#include <aclapi.h>
#include <gtest/gtest.h>

#include <chrono>
#include <thread>

#include "adapters/win32/wide_text.h"
#include "support/interpose.h"
#include "support/temp_office.h"

namespace orv {
namespace {

using namespace std::chrono_literals;

class Win32FilesTest : public testing::Test {
protected:
    Win32FilesTest() {
        office.write("C/D/a.txt", "alpha");
        office.write("C/D/b.txt", "beta");
    }

    /// Opens a file like a virus scanner that lets no other program in.
    Win32Handle held(const std::string& place) const {
        return Win32Handle(
            ::CreateFileW(toWide(office.file(place)).c_str(), GENERIC_READ, 0, nullptr, OPEN_EXISTING, 0, nullptr));
    }

    TempOffice office;
    SystemFiles files{office.paths()};
};

TEST_F(Win32FilesTest, WaitsForAProgramThatHoldsAFileButNotForLong) {
    for (const char* place : {"C/D/a.txt", "C/D/b.txt"}) {
        Win32Handle scanner = held(place);
        std::jthread ends([&scanner] {
            std::this_thread::sleep_for(300ms);
            scanner = Win32Handle();
        });
        files.copy("C:\\D\\a.txt", "C:\\D\\b.txt");
        EXPECT_EQ(office.readBytes("C/D/b.txt"), office.readBytes("C/D/a.txt")) << place;
        office.write("C/D/a.txt", "gamma");
    }
    const Win32Handle scanner = held("C/D/b.txt");
    const int refused = catchFailure([&] { files.publish("C:\\D\\a.txt", "C:\\D\\b.txt"); });
    EXPECT_TRUE(refused == 70 || refused == 75) << refused;
    EXPECT_EQ(catchFailure([&] { (void)files.read("C:\\D\\b.txt", 9); }), 70);
    EXPECT_EQ(office.countIn("C/D"), 2) << "nothing is left next to it";
}

/// The calls that make a change last.
std::string lastingCalls;

TEST_F(Win32FilesTest, AFileIsOnTheDiskBeforeItsNameIs) {
    interpose<[](auto, auto...) { lastingCalls += "flush "; }>(&::FlushFileBuffers);
    interpose<[](auto, auto, auto, DWORD flags) {
        lastingCalls += (flags & MOVEFILE_WRITE_THROUGH) != 0 ? "rename " : "unflushed rename ";
    }>(&::MoveFileExW);
    files.copy("C:\\D\\a.txt", "C:\\D\\c.txt");
    files.publish("C:\\D\\a.txt", "C:\\D\\b.txt");
    files.rename("C:\\D\\b.txt", "C:\\D\\d.txt");
    EXPECT_EQ(lastingCalls, "flush rename flush rename rename ");
}

TEST_F(Win32FilesTest, NamesThatTheSystemWouldReinterpret) {
    for (const char* path : {"C:\\D\\a.txt:stream", "C:\\D\\a.txt::$DATA"}) {
        EXPECT_FALSE(files.exists(path)) << path;
        EXPECT_EQ(catchFailure([&] { (void)files.read(path, 9); }), 52) << path;
    }
    for (const char* path : {"C:\\D\\NUL", "C:\\D\\CON", "NUL", "C:\\D\\a.txt."})
        EXPECT_FALSE(files.exists(path)) << path;
    std::string deep = "C:\\D";
    for (int i = 0; i < 12; ++i) deep += "\\" + std::string(30, static_cast<char>('a' + i));
    std::filesystem::create_directories(longPath(office.paths().toNative(deep)));
    files.copy("C:\\D\\a.txt", deep + "\\photo.jpg");
    EXPECT_EQ(files.read(deep + "\\photo.jpg", 9), "alpha") << "a path of more than 260 characters";
}

TEST_F(Win32FilesTest, APhotoOrLogWithASecondNameIsRefused) {
    ASSERT_NE(
        ::CreateHardLinkW(toWide(office.file("C/D/twin")).c_str(), toWide(office.file("C/D/a.txt")).c_str(), nullptr),
        0);
    EXPECT_EQ(catchFailure([&] { (void)files.open("C:\\D\\a.txt"); }), 75);
    EXPECT_EQ(catchFailure([&] { files.append("C:\\D\\twin", "x"); }), 75);
    files.copy("C:\\D\\b.txt", "C:\\D\\twin");
    EXPECT_EQ(office.readBytes("C/D/a.txt"), "alpha") << "a copy replaces the name and not the content";
}

TEST_F(Win32FilesTest, OnRealDrivesAFileThatTheOperatorChoosesIsNotAWorkingFile) {
    const DrivePaths drives(findInstallRoot(""), office.root() + "/C/ORV/BIN");
    SystemFiles real{drives};
    const std::string folder = drives.toNative(office.root() + "/C/D/");
    EXPECT_EQ(real.programFolder(), drives.toNative(office.root() + "/C/ORV/BIN"));
    EXPECT_EQ(real.nativePath("..\\SYS\\x"), drives.toNative(office.root() + "/C/ORV/SYS/x"));
    EXPECT_EQ(real.nativePath("//server/share/../../x/./y"), "\\\\server\\share\\x\\y");
    const DrivePaths shared("", "\\\\server\\share\\ORV\\BIN");
    EXPECT_EQ(shared.toNative("..\\SYS\\system.ini"), "\\\\server\\share\\ORV\\SYS\\system.ini");
    EXPECT_EQ(fromWide(longPath(shared.programFolder())), "\\\\?\\UNC\\server\\share\\ORV\\BIN");
    real.workIn(folder + "\\");
    EXPECT_FALSE(real.exists(folder + "\\a.txt"));
    EXPECT_EQ(real.read(real.systemPath(folder + "\\a.txt"), 9), "alpha");
}

/// Returns the number of entries of a file's access list.
int countEntries(const std::string& path) {
    PACL list = nullptr;
    PSECURITY_DESCRIPTOR descriptor = nullptr;
    EXPECT_EQ(::GetNamedSecurityInfoW(longPath(path).c_str(), SE_FILE_OBJECT, DACL_SECURITY_INFORMATION, nullptr,
                                      nullptr, &list, nullptr, &descriptor),
              DWORD{ERROR_SUCCESS});
    const int entries = list != nullptr ? list->AceCount : -1;
    ::LocalFree(descriptor);
    return entries;
}

TEST_F(Win32FilesTest, PrivateFilesHaveAnAccessListOfTheirOwn) {
    files.publish("C:\\D\\a.txt", "C:\\ORV\\x");
    files.copy("C:\\D\\a.txt", "C:\\ORV\\y");
    const int ofFolder = countEntries(office.paths().toNative("C:\\ORV"));
    EXPECT_EQ(countEntries(files.nativePath("C:\\ORV\\x")), ofFolder);
    const int ofCopy = countEntries(files.nativePath("C:\\ORV\\y"));
    EXPECT_NE(ofCopy, ofFolder);
    EXPECT_LE(ofCopy, 2) << "this user and the system";
    files.workIn("C:\\D\\");
    files.copy("C:\\ORV\\x", "C:\\D\\work");
    const std::string work = files.nativePath("C:\\D\\work");
    for (const std::string& place : {work, work.substr(0, work.rfind('\\'))}) {
        EXPECT_EQ(countEntries(place), ofCopy) << place;
    }
    EXPECT_FALSE(files.privateFolder().empty());
}

}  // namespace
}  // namespace orv
