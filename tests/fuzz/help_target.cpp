// The help file: whatever stands in it, its text is shown or the failure has a text.
#include "adapters/posix/ini_reader.h"
#include "adapters/text/cp932.h"
#include "adapters/text/help_file.h"
#include "fuzz/fuzz_target.h"
#include "support/memory_machine.h"
#include "support/no_windows.h"
#include "support/scripted_machine.h"

namespace orv::test {
namespace {

class CountedNotices : public NoWindows {
public:
    std::size_t showNotice(const Notice& notice) override {
        require(!notice.text.empty() && notice.buttons.size() == 1, "a help text is a plain notice");
        ++count;
        return 0;
    }
    int count = 0;
};

void run(const std::string& bytes) {
    static const Cp932 codePage;
    static const FixedFacts facts;
    constexpr const char* kFile = "C:\\ORV\\HLP\\help.hlp";
    MemoryFiles files;
    files.put(kFile, bytes);
    const IniReader reader(files, codePage, facts);
    CountedNotices windows;
    HelpFile help(windows, files, reader, [] { return std::string(kFile); });
    const bool shown = help.ShowHelp("cmd_Entry", "IMG");
    require(shown == (windows.count == 1), "shown is shown");
    require(shown == help.ErrorInfo().text.empty(), "what is not shown is told");
}

}  // namespace

FuzzTarget helpTarget() {
    return {
        "help",
        run,
        {"[IMG]\r\ncmd_Entry=0,\x8A\x6D\x92\xE8,\x89\xE6\x91\x9C\r\n", "[SSX]\ncmd_Entry=0,a,b\n[img]\nCMD_ENTRY=1,,",
         "[IMG]\ncmd_Entry=\"0,\x81,\x81\"", "[IMG]\ncmd_Entry=0,a"}};
}

}  // namespace orv::test
