#include "adapters/machine/ini_reader.h"

#include <gtest/gtest.h>

#include "adapters/system/system_adapters.h"
#include "adapters/text/cp932.h"
#include "support/temp_office.h"

namespace orv {
namespace {

class IniReaderTest : public testing::Test {
protected:
    std::string read(const std::string& bytes, const std::string& section, const std::string& key) {
        office.write("C/ORV/SYS/system.ini", bytes);
        return reader.GetPrivateProfileString(section, key, "C:\\ORV\\SYS\\system.ini");
    }

    TempOffice office;
    SystemFiles files{office.paths()};
    Cp932 codePage;
    SystemFacts facts;
    IniReader reader{files, codePage, facts};
};

TEST_F(IniReaderTest, ReadsAsItsFormatSays) {
    const std::pair<std::string, std::string> cases[] = {
        {"[S]\r\nK=v\r\n", "v"},
        {"[S]\rA=1\rK=v\rB=2", "v"},
        {"[s]\nk=v", "v"},
        {" \t[ \tS\t ] \n\t K \t=\t v w \t\r\n", "v w"},
        {"[S]\nK=\x81\x40v\x81\x40", "　v　"},
        // The first key of the first section counts, even if it is empty.
        {"[S]\nK=1\nK=2", "1"},
        {"[S]\nK=\nK=2", ""},
        {"[S]\nA=1\n[S]\nK=2", ""},
        {"[T]\nK=1\n[S]\nA=2\n[U]\nK=3", ""},
        {"[S] ; note\nK=v", "v"},
        {"[S]\n;K=1\n  ;K=2\nK=3 ;4", "3 ;4"},
        {"[S]\nK\nK=2", "2"},
        {"[S]\nK=a=b", "a=b"},
        // One matching pair of quotes is removed.
        {"[S]\nK=\" v \"", " v "},
        {"[S]\nK=\"\"v\"\"", "\"v\""},
        {"[S]\nK=\"v'", "\"v'"},
        {"\xEF\xBB\xBF[S]\nK=v", "v"},
        {"[S]\nK=\xB1\xB2\x81", "ｱｲ・"},
        {"[\n[]\n[[\n]\n=\n", ""},
    };
    for (const auto& [bytes, expected] : cases) EXPECT_EQ(read(bytes, "S", "K"), expected) << bytes;
}

TEST_F(IniReaderTest, CutsAt511BytesBetweenCharacters) {
    const std::string start = "[S]\nK=";
    EXPECT_EQ(read(start + std::string(512, 'a'), "S", "K"), std::string(511, 'a'));
    EXPECT_EQ(read(start + std::string(510, 'a') + "\x83\x5C", "S", "K"), std::string(510, 'a'));
    EXPECT_EQ(read(start + std::string(509, 'a') + "\x83\x5C" + "b", "S", "K"), std::string(509, 'a') + "ソ");
}

}  // namespace
}  // namespace orv
