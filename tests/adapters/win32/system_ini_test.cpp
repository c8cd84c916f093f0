#include <gtest/gtest.h>

#include <array>
#include <map>

#include "adapters/machine/ini_reader.h"
#include "adapters/system/system_adapters.h"
#include "adapters/text/cp932.h"
#include "adapters/win32/windows_api.h"
#include "support/temp_office.h"

namespace orv {
namespace {

/// A line of a file. The system's reader can read a file with that line in another way, as `difference` says.
struct Line {
    const char* bytes;
    const char* difference = nullptr;
};

constexpr auto kLines = std::to_array<Line>({
    {""},
    {"[S]"},
    {" [ S ] ; note"},
    {"[s", "ignores a header without the bracket"},
    {"[T]"},
    {";[S]"},
    {"K=v"},
    {"\tk \t=  v w \t"},
    {"K=\" v \""},
    {"K='v'"},
    {"K=\"v"},
    {"K=\"\"v\"\" ;x"},
    {"K", "reads a name without a sign as an empty value"},
    {"K="},
    {"K==;v=w"},
    {"=v"},
    {";K=v"},
    {"#K=v"},
    {"KK=v"},
    {"K=C:\\\x95\x5C\\\xB1"},
    {"K\x81\x40=v"},
    {"K=\x81", "reads half a character and the line end as one"},
});
constexpr std::array<const char*, 3> kEnds{"\r\n", "\n", "\r"};

class SystemIni : public testing::Test {
protected:
    /// Each file has a name of its own, because the system remembers the content of the last ones.
    void compare(const std::string& bytes, const char* difference) {
        const std::string name = "C/ORV/SYS/" + std::to_string(files_++) + ".ini";
        const std::string path = office.write(name, bytes);
        std::array<char, 512> value{};
        const DWORD length = ::GetPrivateProfileStringA("S", "K", "", value.data(), value.size(), path.c_str());
        const std::string expected = codePage.decode({value.data(), length});
        const std::string found = reader.GetPrivateProfileString("S", "K", office.paths().toSystem(path));
        if (difference != nullptr) {
            differences_[difference] += found == expected ? 0 : 1;
        } else {
            EXPECT_EQ(found, expected) << testing::PrintToString(bytes);
        }
    }

    TempOffice office;
    SystemFiles files{office.paths()};
    Cp932 codePage;
    SystemFacts facts;
    IniReader reader{files, codePage, facts};
    int files_ = 0;
    std::map<std::string, int> differences_;
};

TEST_F(SystemIni, ReadsLikeTheReaderOfTheSystem) {
    for (const Line& first : kLines) {
        for (const Line& second : kLines) {
            const char* end = kEnds[static_cast<std::size_t>(files_) % kEnds.size()];
            compare(std::string("[S]") + end + first.bytes + end + second.bytes + end + "[S]" + end + "K=last",
                    first.difference != nullptr ? first.difference : second.difference);
        }
    }
    for (const auto& [difference, count] : differences_) {
        EXPECT_GT(count, 0) << "no longer differs: " << difference;
        std::cout << "The system " << difference << ": " << count << " of " << files_ << " files\n";
    }
}

}  // namespace
}  // namespace orv
