#include "adapters/posix/ini_reader.h"

#include <gtest/gtest.h>

#include <random>
#include <utility>

#include "adapters/posix/posix_facts.h"
#include "adapters/posix/posix_files.h"
#include "adapters/text/cp932.h"
#include "temp_office.h"

namespace orv {
namespace {

class IniReaderTest : public testing::Test {
protected:
    std::string read(const std::string& bytes, const std::string& section, const std::string& key) {
        office.write("C/ORV/SYS/system.ini", bytes);
        return reader.GetPrivateProfileString(section, key, "C:\\ORV\\SYS\\system.ini");
    }

    TempOffice office;
    PosixFiles files{office.paths()};
    Cp932 codePage;
    PosixFacts facts;
    IniReader reader{files, codePage, facts};
};

TEST_F(IniReaderTest, ReadsAsItsFormatSays) {
    const std::pair<std::string, std::string> cases[] = {
        {"[S]\r\nK=v\r\n", "v"},
        {"[S]\nK=v", "v"},
        {"[S]\rA=1\rK=v\rB=2", "v"},
        {"[s]\nk=v", "v"},
        {" \t[ \tS\t ] \n\t K \t=\t v w \t\r\n", "v w"},
        {"[S]\nK=\x81\x40v\x81\x40", "　v　"},
        // The first key of the first section counts, an empty one too.
        {"[S]\nK=1\nK=2", "1"},
        {"[S]\nK=\nK=2", ""},
        {"[S]\nA=1\n[S]\nK=2", ""},
        {"[T]\nK=1\n[S]\nA=2\n[U]\nK=3", ""},
        {"K=1\n[S]\nA=2", ""},
        {"[S\nK=v", "v"},
        {"[S] ; note\nK=v", "v"},
        {"[S]\n;K=1\n  ;K=2\nK=3 ;4", "3 ;4"},
        {"[S]\n#K=1\nK=2", "2"},
        {"[S]\nK\nK=2", "2"},
        {"[S]\nK=a=b", "a=b"},
        // One matching pair of quotes goes.
        {"[S]\nK=\" v \"", " v "},
        {"[S]\nK='v'", "v"},
        {"[S]\nK=\"\"v\"\"", "\"v\""},
        {"[S]\nK=\"", "\""},
        {"[S]\nK=\"v'", "\"v'"},
        {"\xEF\xBB\xBF[S]\nK=v", "v"},
        {"[S]\nK=\xB1\xB2\x81", "ｱｲ・"},
        {"[\n[]\n[[\n]\n=\n", ""},
        {"", ""},
    };
    for (const auto& [bytes, expected] : cases) {
        EXPECT_EQ(read(bytes, "S", "K"), expected) << bytes;
    }
}

TEST_F(IniReaderTest, TrailBytesArePartOfTheirCharacter) {
    const struct {
        const char* section;
        const char* key;
        std::string bytes;
        const char* expected;
    } cases[] = {
        // ー ends in 5B, ゼ in 5B, ソ in 5C, ゾ in 5D
        {"ゾーン", "ソート", "[\x83\x5D\x81\x5B\x83\x93]\n\x83\x5C\x81\x5B\x83\x67=\x83\x5C", "ソ"},
        {"ゾ", "K", "[\x83\x5D]\nK=v", "v"},
        // a line that begins with a trail byte of its own is no section
        {"S", "ゾ", "[S]\n\x83\x5D=1", "1"},
        // ァ is 83 40, ア 83 41, チ 83 60, ヂ 83 61: letters by their second byte only
        {"S", "ア", "[S]\n\x83\x61=1\n\x83\x41=2", "2"},
        {"S", "ヂ", "[S]\n\x83\x41=1\n\x83\x61=2", "2"},
        {"S", "ａ", "[S]\n\x82\x60=1\n\x82\x81=2", "2"},
        {"S", "キーx", "[S]\n\x83\x4C\x81\x5BX=1", "1"},
    };
    for (const auto& [section, key, bytes, expected] : cases) {
        EXPECT_EQ(read(bytes, section, key), expected) << key;
    }
}

TEST_F(IniReaderTest, CutsAt511BytesBetweenCharacters) {
    const std::string start = "[S]\nK=";
    EXPECT_EQ(read(start + std::string(511, 'a'), "S", "K"), std::string(511, 'a'));
    EXPECT_EQ(read(start + std::string(512, 'a'), "S", "K"), std::string(511, 'a'));
    EXPECT_EQ(read(start + std::string(510, 'a') + "\x83\x5C", "S", "K"), std::string(510, 'a'));
    EXPECT_EQ(read(start + std::string(509, 'a') + "\x83\x5C" + "b", "S", "K"), std::string(509, 'a') + "ソ");
}

TEST_F(IniReaderTest, WhatIsNotThereIsEmpty) {
    office.write("C/ORV/SYS/system.ini", "[S]\nK=v");
    const std::string place = "C:\\ORV\\SYS\\";
    for (const std::string& file : {place + "no.ini", place, std::string("C:\\NO\\x.ini"), std::string("no.ini"),
                                    std::string(), std::string("\0", 1)}) {
        EXPECT_EQ(reader.GetPrivateProfileString("S", "K", file), "") << file;
    }
    const std::string nul(1, '\0');
    EXPECT_EQ(reader.GetPrivateProfileString("S" + nul, "K" + nul, place + "system.ini" + nul), "v");
    EXPECT_EQ(reader.GetPrivateProfileString("", "", place + "system.ini"), "");
}

TEST_F(IniReaderTest, BareNameMeansTheWindowsFolder) {
    office.write("C/Windows/suite.ini", "[S]\nK=windows");
    office.write("C/ORV/BIN/suite.ini", "[S]\nK=program");
    EXPECT_EQ(reader.GetPrivateProfileString("S", "K", "SUITE.INI"), "windows");
    EXPECT_EQ(reader.GetPrivateProfileString("S", "K", ".\\SUITE.INI"), "program");
}

TEST_F(IniReaderTest, FileThatIsThereButCantBeReadIsAFailure) {
    const std::string path = office.write("C/ORV/SYS/system.ini", "[S]\nK=v");
    ::chmod(path.c_str(), 0);
    const WithoutRights rights(office.root() + "/C/ORV/SYS");
    EXPECT_EQ(failureOf([&] { (void)reader.GetPrivateProfileString("S", "K", path); }), 75);
}

TEST_F(IniReaderTest, LargeAndRandomFilesAreHarmless) {
    const std::string large = std::string(50 << 20, '[') + "\n";
    EXPECT_EQ(read(large + "[S]\nK=v", "S", "K"), "v");
    const std::string path = office.root() + "/C/ORV/SYS/system.ini";
    std::filesystem::resize_file(path, (64 << 20) + 1);
    EXPECT_EQ(failureOf([&] { (void)reader.GetPrivateProfileString("S", "K", path); }), 7);

    std::mt19937 random(1);
    std::string bytes(1'000'000, '\0');
    std::generate(bytes.begin(), bytes.end(), [&] { return static_cast<char>(random() & 0xFF); });
    EXPECT_EQ(read(bytes + "\n[Section]\nKey=v", "Section", "Key"), "v");
}

}  // namespace
}  // namespace orv
