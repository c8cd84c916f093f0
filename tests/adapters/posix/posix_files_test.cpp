#include "adapters/posix/posix_files.h"

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <map>

#include "adapters/file_size_limit.h"
#include "adapters/posix/native_file.h"
#include "temp_office.h"

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
    PosixFiles files{office.paths()};
};

TEST_F(PosixFilesTest, ReadsUpToTheLimit) {
    EXPECT_EQ(files.read("C:\\D\\a.txt", 5), "alpha");
    EXPECT_TRUE(files.exists("C:\\d\\A.TXT") && files.canOpen("C:\\d\\A.TXT"));
    EXPECT_FALSE(files.exists("C:\\D\\pipe") || files.canOpen("C:\\D\\pipe"));
    EXPECT_EQ(failureOf([&] { (void)files.read("C:\\D\\a.txt", 4); }), 7);
    EXPECT_EQ(files.sizeOf("C:\\D\\a.txt"), 5U);
}

TEST_F(PosixFilesTest, CopiesWholeFiles) {
    const std::string large(300'000, 'x');
    office.write("C/D/large", large);
    files.copy("C:\\D\\large", "C:\\D\\" + std::string(255, 'n'));
    EXPECT_EQ(office.bytesOf("C/D/" + std::string(255, 'n')), large);
    files.copy("C:\\D\\a.txt", "C:\\D\\B.TXT");
    EXPECT_EQ(office.bytesOf("C/D/b.txt"), "alpha");
}

TEST_F(PosixFilesTest, ACopyIsPrivateUnlessItIsPublishedAndALogIsShared) {
    const auto rightsOf = [this](const std::string& place) {
        return std::filesystem::status(office.root() + "/C/D/" + place).permissions();
    };
    for (const auto folder : {0775U, 0700U, 0777U}) {
        std::filesystem::permissions(office.root() + "/C/D", std::filesystem::perms{folder});
        const std::filesystem::perms shared{folder & 0666U};
        files.copy("C:\\D\\a.txt", "C:\\D\\copy");
        EXPECT_EQ(rightsOf("copy"), std::filesystem::perms{0600});
        files.publish("C:\\D\\a.txt", "C:\\D\\copy");
        EXPECT_EQ(rightsOf("copy"), shared);
        files.append("C:\\D\\log", "x");
        EXPECT_EQ(rightsOf("log"), shared);
        files.remove("C:\\D\\copy");
        files.remove("C:\\D\\log");
    }
}

TEST_F(PosixFilesTest, CopyOfTheSameBytesWritesNothing) {
    const std::string twin = office.write("C/D/twin", "alpha");
    const auto number = [&twin] {
        struct stat facts {};
        return ::stat(twin.c_str(), &facts) == 0 ? facts.st_ino : 0;
    };
    const ino_t before = number();
    files.copy("C:\\D\\a.txt", "C:\\D\\twin");
    EXPECT_EQ(number(), before);
    office.write("C/D/a.txt", "alphb");
    files.copy("C:\\D\\a.txt", "C:\\D\\twin");
    EXPECT_EQ(office.bytesOf("C/D/twin"), "alphb");
    EXPECT_NE(number(), before);
}

TEST_F(PosixFilesTest, FailedCopyLeavesEverythingAsItWas) {
    office.write("C/D/large", std::string(100'000, 'x'));
    {
        const FileSizeLimit full(50'000);
        EXPECT_EQ(failureOf([&] { files.copy("C:\\D\\large", "C:\\D\\b.txt"); }), 61);
    }
    EXPECT_EQ(office.bytesOf("C/D/b.txt"), "beta");
    EXPECT_EQ(office.countIn("C/D"), 4);
}

TEST_F(PosixFilesTest, WhatADeadRunLeftGoesWithTheNextCopyAndNothingElse) {
    office.write("C/D/.orv-1-1.tmp", "half a pho");
    office.write("C/D/.orv-notes", "of the clerk");
    {
        const FileBeside living{FilePlace(chosenPath(office.root() + "/C/D/other.txt"))};
        living.file().writeAll("being written");
        files.copy("C:\\D\\a.txt", "C:\\D\\b.txt");
        EXPECT_FALSE(office.has("C/D/.orv-1-1.tmp"));
        EXPECT_EQ(office.countIn("C/D"), 5) << "the three, the notes, and the one that is being written";
    }
    EXPECT_EQ(office.bytesOf("C/D/.orv-notes"), "of the clerk");
}

TEST_F(PosixFilesTest, AppendsWholeRecordsOrNothing) {
    files.append("C:\\D\\log.txt", "one\r\n");
    files.append("C:\\D\\LOG.txt", "two\r\n");
    {
        const FileSizeLimit full(12);
        EXPECT_EQ(failureOf([&] { files.append("C:\\D\\log.txt", "three\r\n"); }), 61);
    }
    EXPECT_EQ(office.bytesOf("C/D/log.txt"), "one\r\ntwo\r\n");
    EXPECT_EQ(failureOf([&] { files.append("C:\\NO\\log.txt", "x"); }), 76);
    EXPECT_FALSE(office.has("C/NO"));
    office.write("C/D/log.txt", "one\r\nhal");
    files.append("C:\\D\\log.txt", "two\r\n");
    EXPECT_EQ(office.bytesOf("C/D/log.txt"), "one\r\nhal\r\ntwo\r\n") << "after a run that crashed within its record";
}

TEST_F(PosixFilesTest, AFileThatCannotBeLookedAtDoesNotPassForGone) {
    std::filesystem::permissions(office.root() + "/C/D", std::filesystem::perms::none);
    const uid_t self = ::geteuid();
    static_cast<void>(::seteuid(self == 0 ? 65534 : self));
    EXPECT_EQ(failureOf([&] { (void)files.exists("C:\\D\\a.txt"); }), 75);
    static_cast<void>(::seteuid(self));
    std::filesystem::permissions(office.root() + "/C/D", std::filesystem::perms::owner_all);
}

TEST_F(PosixFilesTest, RenamesOnlyToAFreeName) {
    EXPECT_EQ(failureOf([&] { files.rename("C:\\D\\a.txt", "C:\\D\\b.txt"); }), 58);
    EXPECT_EQ(office.bytesOf("C/D/b.txt"), "beta");
    files.remove("C:\\D\\B.txt");
    files.rename("C:\\D\\A.txt", "C:\\D\\b.txt");
    EXPECT_EQ(office.bytesOf("C/D/b.txt"), "alpha");
    EXPECT_FALSE(office.has("C/D/a.txt"));
}

TEST_F(PosixFilesTest, EveryFailureHasItsNumber) {
    const std::string tooLong = "C:\\D\\" + std::string(256, 'n');
    const std::map<std::string, int> reads{{"C:\\D\\no", 53},   {"C:\\NO\\a.txt", 76}, {"C:\\D", 75},
                                           {"C:\\D\\pipe", 75}, {tooLong, 52},         {"", 52}};
    for (const auto& [path, number] : reads) {
        EXPECT_EQ(failureOf([&] { (void)files.read(path, 9); }), number) << path;
    }
    for (const auto& [to, number] : {std::pair{"C:\\D\\pipe", 75}, {"C:\\D", 75}, {"C:\\NO\\b.txt", 76}}) {
        EXPECT_EQ(failureOf([&, target = to] { files.copy("C:\\D\\a.txt", target); }), number) << to;
    }
    EXPECT_EQ(failureOf([&] { files.remove("C:\\D\\no"); }), 53);
    EXPECT_EQ(failureOf([&] { files.rename("C:\\D\\no", "C:\\D\\new"); }), 53);
    EXPECT_EQ(failureOf([&] { files.append("C:\\D\\pipe", "x"); }), 75);
    EXPECT_EQ(office.countIn("C/D"), 3);
}

}  // namespace
}  // namespace orv
