#include "adapters/posix/install_paths.h"

#include <gtest/gtest.h>

#include "temp_office.h"

namespace orv {
namespace {

TEST(InstallPaths, FindsTheNativePlace) {
    const TempOffice office;
    office.write("C/ORV/Sys/System.INI", "");
    office.write("C/ORV/Dup/b", "");
    office.write("C/ORV/Dup/B", "");
    office.write("C/ORV/Dup/NAME", "");
    office.write("C/ORV/Dup/Name", "");
    office.write("C/ORV/写真/外観.jpg", "");
    office.write("secret", "");
    const std::string longName(300, 'x');
    const struct {
        std::string path;
        std::string expected;
    } cases[] = {
        {"C:\\ORV\\SYS\\system.ini", "/C/ORV/Sys/System.INI"},
        {"c:/orv/sys/SYSTEM.INI", "/C/ORV/Sys/System.INI"},
        {"C:", "/C"},
        {"C:\\", "/C"},
        {"C:\\ORV\\.\\BIN\\..\\SYS\\\\system.ini", "/C/ORV/Sys/System.INI"},
        {"C:\\ORV\\NOT\\THERE\\..\\New.txt", "/C/ORV/NOT/New.txt"},
        {"C:\\orv\\NEW\\Sys\\x", "/C/ORV/NEW/Sys/x"},
        {"C:\\ORV\\Dup\\b", "/C/ORV/Dup/b"},
        {"C:\\ORV\\Dup\\B", "/C/ORV/Dup/B"},
        {"C:\\ORV\\Dup\\name", "/C/ORV/Dup/NAME"},
        {"C:\\orv\\写真\\外観.JPG", "/C/ORV/写真/外観.jpg"},
        {"C:\\..\\..\\..\\secret", "/C/secret"},
        {"..\\..\\..\\..\\..\\secret", "/C/secret"},
        {"C:/../../etc/passwd", "/C/etc/passwd"},
        {"..\\SYS\\system.ini", "/C/ORV/Sys/System.INI"},
        {"new.txt", "/C/ORV/BIN/new.txt"},
        {"\\ORV\\sys", "/C/ORV/Sys"},
        {"d:\\DATA", "/D/DATA"},
        {"C:\\ORV\\" + longName, "/C/ORV/" + longName},
    };
    for (const auto& [path, expected] : cases) {
        EXPECT_EQ(office.paths().toNative(path), office.root() + expected) << path;
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
    const struct {
        const char* native;
        const char* expected;
    } cases[] = {
        {"/office/D/写真/a.jpg", "D:\\写真\\a.jpg"},
        {"/office/D", "D:"},
        {"/office/registry.txt", "/office/registry.txt"},
        {"/office/CD/x", "/office/CD/x"},
        {"/office2/C/x", "/office2/C/x"},
        {"/office/C/a\\b", "/office/C/a\\b"},
        {"/office", "/office"},
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
    const struct {
        const char* programFolder;
        const char* expected;
    } cases[] = {
        {"/office/C/ORV/BIN", "/office"}, {"/A/office/C/ORV/BIN/", "/A/office"},
        {"/office/C", "/office"},         {"/C/ORV", "/"},
        {"/office/c/BIN", "/office/c"},   {"/opt/orv", "/opt"},
        {"/office/あ/BIN", "/office/あ"},
    };
    for (const auto& [programFolder, expected] : cases) {
        EXPECT_EQ(installRootOf(programFolder), expected) << programFolder;
    }
    EXPECT_EQ(std::filesystem::read_symlink("/proc/self/exe").parent_path(), runningProgramFolder());
}

}  // namespace
}  // namespace orv
