#include "adapters/posix/install_paths.h"

#include <gtest/gtest.h>

#include <map>
#include <utility>
#include <vector>

#include "temp_office.h"

namespace orv {
namespace {

TEST(InstallPaths, FindsTheNativePlace) {
    const TempOffice office;
    for (const char* place : {"C/ORV/Sys/System.INI", "C/ORV/Dup/b", "C/ORV/Dup/B", "C/ORV/Dup/NAME", "C/ORV/Dup/Name",
                              "C/ORV/写真/外観.jpg", "secret"}) {
        office.write(place, "");
    }
    const std::string longName(300, 'x');
    const std::map<std::string, std::vector<std::string>> cases{
        {"/C/ORV/Sys/System.INI",
         {"C:\\ORV\\SYS\\system.ini", "c:/orv/sys/SYSTEM.INI", "C:\\ORV\\.\\BIN\\..\\SYS\\\\system.ini",
          "..\\SYS\\system.ini"}},
        {"/C", {"C:", "C:\\"}},
        {"/C/ORV/NOT/New.txt", {"C:\\ORV\\NOT\\THERE\\..\\New.txt"}},
        {"/C/ORV/NEW/Sys/x", {"C:\\orv\\NEW\\Sys\\x"}},
        {"/C/ORV/Dup/b", {"C:\\ORV\\Dup\\b"}},
        {"/C/ORV/Dup/B", {"C:\\ORV\\Dup\\B"}},
        {"/C/ORV/Dup/NAME", {"C:\\ORV\\Dup\\name"}},
        {"/C/ORV/写真/外観.jpg", {"C:\\orv\\写真\\外観.JPG"}},
        {"/C/secret", {"C:\\..\\..\\..\\secret", "..\\..\\..\\..\\..\\secret"}},
        {"/C/ORV/BIN/new.txt", {"new.txt"}},
        {"/C/ORV/Sys", {"\\ORV\\sys"}},
        {"/D/DATA", {"d:\\DATA"}},
        {"/C/ORV/" + longName, {"C:\\ORV\\" + longName}},
    };
    for (const auto& [expected, paths] : cases) {
        for (const std::string& path : paths) {
            EXPECT_EQ(office.paths().toNative(path), office.root() + expected) << path;
        }
    }
}

TEST(InstallPaths, LetsNativePathsPass) {
    const TempOffice office;
    const std::string odd = office.write("a\\b.jpg", "");
    const std::string photo = office.write("photos/x.jpg", "");
    EXPECT_EQ(office.paths().toNative("/etc/../etc/passwd"), "/etc/../etc/passwd");
    EXPECT_EQ(office.paths().toNative(odd), odd);
    EXPECT_EQ(office.paths().toNative(office.root() + "/C\\..\\Photos\\X.JPG"), photo);
}

TEST(InstallPaths, RefusesWhatIsNoPath) {
    const TempOffice office;
    EXPECT_EQ(failureOf([&] { (void)office.paths().toNative(""); }), 52);
    EXPECT_EQ(failureOf([&] { (void)office.paths().toNative(std::string("C:\\ORV\0\\x", 9)); }), 52);
}

TEST(InstallPaths, MapsBack) {
    const InstallPaths paths("/office/", "/office/C/ORV/BIN/");
    EXPECT_EQ(paths.programFolder(), "C:\\ORV\\BIN");
    EXPECT_EQ(InstallPaths("/office", "/office/C").programFolder(), "C:");
    const std::pair<const char*, const char*> cases[] = {
        {"/office/D/写真/a.jpg", "D:\\写真\\a.jpg"},
        {"/office/D", "D:"},
        {"/office/registry.txt", "/office/registry.txt"},
        {"/office/CD/x", "/office/CD/x"},
        {"/office2/C/x", "/office2/C/x"},
        {"/office/C/a\\b", "/office/C/a\\b"},
        {"", ""},
    };
    for (const auto& [native, expected] : cases) {
        EXPECT_EQ(paths.toSystem(native), expected);
    }
}

TEST(InstallPaths, ProgramOutsideTheDrivesStillFindsItsNeighbours) {
    const TempOffice office;
    const std::string settings = office.write("SYS/system.ini", "");
    std::filesystem::create_directories(office.root() + "/bin");
    const InstallPaths paths(office.root(), office.root() + "/bin");
    EXPECT_EQ(paths.programFolder(), office.root() + "/bin");
    EXPECT_EQ(paths.toNative(paths.programFolder() + "\\..\\sys\\System.ini"), settings);
    EXPECT_EQ(paths.toNative("..\\sys\\System.ini"), settings);
}

TEST(InstallPaths, FindsTheRootOfAnInstall) {
    const std::pair<const char*, const char*> cases[] = {
        {"/office/C/ORV/BIN", "/office"}, {"/A/office/C/ORV/BIN/", "/A/office"},
        {"/office/C", "/office"},         {"/C/ORV", "/"},
        {"/office/c/BIN", "/office/c"},   {"/opt/orv", "/opt"},
    };
    for (const auto& [programFolder, expected] : cases) {
        EXPECT_EQ(installRootOf(programFolder), expected) << programFolder;
    }
    EXPECT_EQ(std::filesystem::read_symlink("/proc/self/exe").parent_path(), runningProgramFolder());
}

}  // namespace
}  // namespace orv
