// The settings reader: section and key on the first two lines, the file behind them.
#include "adapters/posix/ini_reader.h"
#include "adapters/text/cp932.h"
#include "fuzz/fuzz_target.h"
#include "platform/utf8.h"
#include "support/memory_machine.h"
#include "support/scripted_machine.h"

namespace orv::test {
namespace {

std::string tookLine(std::string& rest) {
    const std::string line = rest.substr(0, rest.find('\n'));
    rest.erase(0, line.size() + 1);
    return line;
}

void run(const std::string& bytes) {
    static const Cp932 codePage;
    static const FixedFacts facts;
    constexpr const char* kFile = "C:\\ORV\\SYS\\system.ini";
    constexpr std::size_t kLongestValue = 511;
    std::string file = bytes;
    const std::string section = tookLine(file);
    const std::string key = tookLine(file);
    MemoryFiles files;
    files.put(kFile, file);
    const IniReader reader(files, codePage, facts);
    const std::string value = reader.GetPrivateProfileString(section, key, kFile);
    require(value == toUtf8(toCharacters(value)), "a value is valid UTF-8");
    require(codePage.encode(value).size() <= kLongestValue, "a value is cut");
    require(value.find_first_of("\r\n") == std::string::npos, "a value is of one line");
    static_cast<void>(reader.GetPrivateProfileString("PATH", "SYS", file));
}

}  // namespace

FuzzTarget settingsTarget() {
    return {"settings",
            run,
            {"PATH\nSYS\n[PATH]\r\nSYS=C:\\ORV\\SYS\r\n", "s\nk\n[ S ] ; x\n;k=1\n k = \" v \"\n[S]\nk=2",
             "ゾーン\nソート\n[\x83\x5D\x81\x5B\x83\x93]\n\x83\x5C\x81\x5B\x83\x67=\x83\x5C",
             "S\nK\n\xEF\xBB\xBF[S\rK='v\x81'\r", "S\nK\n[S]\nK=" + std::string(510, 'a') + "\x83\x5C"}};
}

}  // namespace orv::test
