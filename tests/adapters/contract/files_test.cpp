#include <gtest/gtest.h>

#include <array>
#include <chrono>
#include <map>

#include "adapters/system/system_adapters.h"
#include "support/temp_office.h"

namespace orv {
namespace {

class FilesContract : public testing::Test {
protected:
    FilesContract() {
        office.write("C/D/a.txt", "alpha");
        office.write("C/D/b.txt", "beta");
    }

    TempOffice office;
    SystemFiles files{office.paths()};
};

TEST_F(FilesContract, ReadsUpToTheLimit) {
    EXPECT_EQ(files.read("C:\\D\\a.txt", 5), "alpha");
    EXPECT_TRUE(files.exists("C:\\d\\A.TXT") && files.canOpen("C:\\d\\A.TXT"));
    const FileStream stream = files.open("C:\\D\\b.txt");
    std::array<char, 9> bytes{};
    EXPECT_EQ(std::fread(bytes.data(), 1, bytes.size(), stream.get()), 4U);
    EXPECT_EQ(std::string(bytes.data()), "beta");
    EXPECT_TRUE(files.folderExists("c:\\d") && !files.folderExists("C:\\D\\a.txt") && !files.exists("C:\\D"));
    for (const char* none : {"C:\\D\\no", "C:\\NO\\a.txt", "C:\\D\\a.txt\\b", ""}) {
        EXPECT_FALSE(files.exists(none) || files.folderExists(none) || files.canOpen(none)) << none;
    }
    EXPECT_EQ(catchFailure([&] { (void)files.read("C:\\D\\a.txt", 4); }), 7);
    EXPECT_EQ(files.fileSize("C:\\D\\a.txt"), 5U);
}

TEST_F(FilesContract, CopiesWholeFiles) {
    const std::string large(300'000, 'x');
    office.write("C/D/large", large);
    files.copy("C:\\D\\large", "C:\\D\\" + std::string(255, 'n'));
    EXPECT_EQ(office.readBytes("C/D/" + std::string(255, 'n')), large);
    files.copy("C:\\D\\a.txt", "C:\\D\\B.TXT");
    EXPECT_EQ(office.readBytes("C/D/b.txt"), "alpha");
}

TEST_F(FilesContract, FindsAFileByAnyFormOfItsPath) {
    office.write("C/ORV/Sys/System.INI", "x");
    office.write("C/ORV/写真/外観.jpg", "y");
    office.write("secret", "no");
    const std::map<std::string, std::vector<std::string>> cases{
        {"x",
         {"C:\\ORV\\SYS\\system.ini", "c:/orv/sys/SYSTEM.INI", "C:\\ORV\\.\\BIN\\..\\SYS\\\\system.ini",
          "..\\SYS\\system.ini", "\\ORV\\sys\\system.ini", "C:\\..\\..\\ORV\\SYS\\system.ini"}},
        {"y", {"C:\\orv\\写真\\外観.JPG", files.nativePath("C:\\ORV\\写真\\外観.jpg")}},
    };
    for (const auto& [bytes, paths] : cases) {
        for (const std::string& path : paths) EXPECT_EQ(files.read(path, 9), bytes) << path;
    }
    EXPECT_FALSE(files.exists("C:\\..\\secret") || files.exists("..\\..\\..\\secret"));
    EXPECT_EQ(files.programFolder(), "C:\\ORV\\BIN");
    EXPECT_EQ(files.systemPath(files.nativePath("C:\\ORV\\new.jpg")), "C:\\ORV\\new.jpg");
}

TEST_F(FilesContract, CopyOfTheSameBytesWritesNothing) {
    using namespace std::chrono_literals;
    const std::string twin = office.write("C/D/twin", "alpha");
    const auto longAgo = std::filesystem::last_write_time(twin) - 24h;
    std::filesystem::last_write_time(twin, longAgo);
    files.copy("C:\\D\\a.txt", "C:\\D\\twin");
    files.copy("C:\\D\\twin", "C:\\D\\TWIN");
    EXPECT_EQ(std::filesystem::last_write_time(twin), longAgo);
    office.write("C/D/a.txt", "alphb");
    files.copy("C:\\D\\a.txt", "C:\\D\\twin");
    EXPECT_EQ(office.readBytes("C/D/twin"), "alphb");
}

TEST_F(FilesContract, PutsAWholeFileInPlace) {
    files.publish("C:\\D\\a.txt", "C:\\D\\B.txt");
    EXPECT_EQ(office.readBytes("C/D/b.txt"), "alpha");
    const std::string bytes = "gamma";
    files.write("C:\\D\\b.txt", {reinterpret_cast<const std::uint8_t*>(bytes.data()), bytes.size()});
    EXPECT_EQ(office.readBytes("C/D/b.txt"), bytes);
    EXPECT_TRUE(files.haveSameContent("C:\\D\\b.txt", "C:\\D\\B.TXT"));
    EXPECT_FALSE(files.haveSameContent("C:\\D\\a.txt", "C:\\D\\b.txt"));
    EXPECT_EQ(office.countIn("C/D"), 2);
}

TEST_F(FilesContract, TheNextCopyRemovesTheFilesOfACrashedRunAndNoOthers) {
    office.write("C/D/.orv-1-1.tmp", "half a pho");
    office.write("C/D/.orv-notes", "of the clerk");
    files.copy("C:\\D\\a.txt", "C:\\D\\b.txt");
    EXPECT_FALSE(office.has("C/D/.orv-1-1.tmp"));
    EXPECT_EQ(office.readBytes("C/D/.orv-notes"), "of the clerk");
    EXPECT_EQ(office.countIn("C/D"), 3);
}

TEST_F(FilesContract, AFileThatALivingRunWritesIsNotALeftover) {
    const SystemReplacement living(SystemPlace(office.paths(), "C:\\D\\other.txt"), FileAccess::Private);
    living.file().writeAll("being written");
    files.copy("C:\\D\\a.txt", "C:\\D\\b.txt");
    EXPECT_EQ(office.countIn("C/D"), 3);
}

TEST_F(FilesContract, WorkingFilesAreThoseOfOneRun) {
    office.write("C/T/x", "shared");
    SystemFiles second{office.paths()};
    for (SystemFiles* run : {&files, &second}) run->workIn("C:\\T\\");
    EXPECT_FALSE(files.exists("C:\\T\\x"));
    files.copy("C:\\D\\a.txt", "C:\\T\\x");
    second.copy("C:\\D\\b.txt", "c:\\t\\x");
    EXPECT_EQ(files.read("C:\\T\\x", 9) + second.read("C:\\T\\x", 9), "alphabeta");
    EXPECT_EQ(readFile(files.nativePath("C:\\T\\x")), "alpha");
    EXPECT_EQ(files.read(files.systemPath(office.paths().toNative("C:\\T\\x")), 9), "shared");
    files.rename("C:\\T\\x", "C:\\T\\y");
    EXPECT_TRUE(files.exists("C:\\T\\y") && !files.exists("C:\\T\\x") && second.exists("C:\\T\\x"));
    EXPECT_EQ(office.readBytes("C/T/x"), "shared");
    EXPECT_EQ(office.countIn("C/T"), 3);
    {
        SystemFiles ended{office.paths()};
        ended.workIn("C:\\T\\");
        ended.copy("C:\\D\\a.txt", "C:\\T\\x");
    }
    SystemFiles next{office.paths()};
    next.workIn("C:\\T\\");
    EXPECT_EQ(office.countIn("C/T"), 3) << "the folder of the run that has ended is removed";
    EXPECT_EQ(files.read("C:\\T\\y", 9), "alpha");
}

TEST_F(FilesContract, AppendsWholeRecordsOrNothing) {
    files.append("C:\\D\\log.txt", "one\r\n");
    files.append("C:\\D\\LOG.txt", "two\r\n");
    EXPECT_EQ(office.readBytes("C/D/log.txt"), "one\r\ntwo\r\n");
    EXPECT_EQ(catchFailure([&] { files.append("C:\\NO\\log.txt", "x"); }), 76);
    EXPECT_FALSE(office.has("C/NO"));
    office.write("C/D/log.txt", "one\r\nhal");
    files.append("C:\\D\\log.txt", "two\r\n");
    EXPECT_EQ(office.readBytes("C/D/log.txt"), "one\r\nhal\r\ntwo\r\n") << "after a run that crashed within its record";
}

TEST_F(FilesContract, RenamesOnlyToAFreeName) {
    EXPECT_EQ(catchFailure([&] { files.rename("C:\\D\\a.txt", "C:\\D\\b.txt"); }), 58);
    EXPECT_EQ(office.readBytes("C/D/b.txt"), "beta");
    files.remove("C:\\D\\B.txt");
    files.rename("C:\\D\\A.txt", "C:\\D\\b.txt");
    EXPECT_EQ(office.readBytes("C/D/b.txt"), "alpha");
    EXPECT_FALSE(office.has("C/D/a.txt"));
}

TEST_F(FilesContract, EveryFailureHasItsNumber) {
    const std::string tooLong = "C:\\D\\" + std::string(256, 'n');
    const std::map<std::string, int> reads{
        {"C:\\D\\no", 53}, {"C:\\NO\\a.txt", 76}, {"C:\\D", 75}, {tooLong, 52}, {"", 52}};
    for (const auto& [path, number] : reads) {
        EXPECT_EQ(catchFailure([&] { (void)files.read(path, 9); }), number) << path;
    }
    for (const auto& [to, number] : {std::pair{"C:\\D", 75}, {"C:\\NO\\b.txt", 76}}) {
        EXPECT_EQ(catchFailure([&, target = to] { files.copy("C:\\D\\a.txt", target); }), number) << to;
    }
    EXPECT_EQ(catchFailure([&] { files.remove("C:\\D\\no"); }), 53);
    EXPECT_EQ(catchFailure([&] { files.rename("C:\\D\\no", "C:\\D\\new"); }), 53);
    EXPECT_EQ(office.countIn("C/D"), 2);
}

}  // namespace
}  // namespace orv
