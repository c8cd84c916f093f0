#include "adapters/system/system_files.h"

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include "adapters/file_size_limit.h"
#include "support/temp_office.h"

namespace orv {
namespace {

class PosixFilesTest : public testing::Test {
protected:
    PosixFilesTest() {
        office.write("C/D/a.txt", "alpha");
        office.write("C/D/b.txt", "beta");
        ::mkfifo((office.root() + "/C/D/pipe").c_str(), 0666);
    }

    TempOffice office;
    SystemFiles files{office.paths()};
};

TEST_F(PosixFilesTest, ACopyIsPrivateUnlessItIsPublishedAndALogIsShared) {
    const auto readRights = [this](const std::string& place) {
        return std::filesystem::status(office.root() + "/C/D/" + place).permissions();
    };
    for (const auto folder : {0775U, 0700U, 0777U}) {
        std::filesystem::permissions(office.root() + "/C/D", std::filesystem::perms{folder});
        const std::filesystem::perms shared{folder & 0666U};
        files.copy("C:\\D\\a.txt", "C:\\D\\copy");
        EXPECT_EQ(readRights("copy"), std::filesystem::perms{0600});
        files.publish("C:\\D\\a.txt", "C:\\D\\copy");
        EXPECT_EQ(readRights("copy"), shared);
        files.append("C:\\D\\log", "x");
        EXPECT_EQ(readRights("log"), shared);
        files.remove("C:\\D\\copy");
        files.remove("C:\\D\\log");
    }
}

TEST_F(PosixFilesTest, FailedCopyLeavesEverythingAsItWas) {
    office.write("C/D/large", std::string(100'000, 'x'));
    {
        const FileSizeLimit full(50'000);
        EXPECT_EQ(catchFailure([&] { files.copy("C:\\D\\large", "C:\\D\\b.txt"); }), 61);
    }
    EXPECT_EQ(office.readBytes("C/D/b.txt"), "beta");
    EXPECT_EQ(office.countIn("C/D"), 4);
}

TEST_F(PosixFilesTest, AFileThatCannotBeLookedAtDoesNotPassForGone) {
    std::filesystem::permissions(office.root() + "/C/D", std::filesystem::perms::none);
    const uid_t self = ::geteuid();
    static_cast<void>(::seteuid(self == 0 ? 65534 : self));
    EXPECT_EQ(catchFailure([&] { (void)files.exists("C:\\D\\a.txt"); }), 75);
    static_cast<void>(::seteuid(self));
    std::filesystem::permissions(office.root() + "/C/D", std::filesystem::perms::owner_all);
}

TEST_F(PosixFilesTest, APipeIsNotAFile) {
    EXPECT_FALSE(files.exists("C:\\D\\pipe") || files.canOpen("C:\\D\\pipe"));
    EXPECT_EQ(catchFailure([&] { (void)files.read("C:\\D\\pipe", 9); }), 75);
    EXPECT_EQ(catchFailure([&] { files.copy("C:\\D\\a.txt", "C:\\D\\pipe"); }), 75);
    EXPECT_EQ(catchFailure([&] { files.append("C:\\D\\pipe", "x"); }), 75);
    EXPECT_EQ(office.countIn("C/D"), 3);
}

TEST_F(PosixFilesTest, ARecordThatDoesNotFitOnTheDiskIsUndone) {
    files.append("C:\\D\\log.txt", "one\r\n");
    {
        const FileSizeLimit full(7);
        EXPECT_EQ(catchFailure([&] { files.append("C:\\D\\log.txt", "three\r\n"); }), 61);
    }
    EXPECT_EQ(office.readBytes("C/D/log.txt"), "one\r\n");
}

}  // namespace
}  // namespace orv
