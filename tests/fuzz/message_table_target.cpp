// The message file, and a message of it shown with values that come from outside as well.
#include <algorithm>

#include "adapters/text/cp932.h"
#include "adapters/text/table_messages.h"
#include "fuzz/fuzz_target.h"
#include "support/memory_machine.h"
#include "support/no_windows.h"

namespace orv::test {
namespace {

class CheckedNotice : public NoWindows {
public:
    std::size_t showNotice(const Notice& notice) override {
        constexpr std::size_t kFitsOnAScreen = 16'000;
        require(isShowable(notice.text, "\n") && notice.text.size() < kFitsOnAScreen, "a notice can be shown");
        return notice.escapeButton;
    }
};

void run(const std::string& bytes) {
    static const Cp932 codePage;
    constexpr const char* kFile = "C:\\ORV\\SYS\\MSG.TBL";
    MemoryFiles files;
    files.put(kFile, bytes);
    CheckedNotice windows;
    TableMessages messages(
        windows, files, codePage, [] { return std::string(kFile); }, [](const auto&, const auto&) {});
    const MessageFile file = readMessages(codePage.decode(bytes));
    const auto lines = static_cast<std::size_t>(std::ranges::count(bytes, '\n')) + 1;
    require(file.messages.size() + file.badLines.size() <= lines, "no more messages than lines");
    for (const auto& [id, message] : file.messages) {
        require(messages.ShowMessage(id, {Value(bytes), Value("%1\n%2")}), "every message of the file is shown");
    }
    require(messages.ShowMessage(bytes, {Value(bytes)}), "an unknown one is shown");
    require(messages.ShowMessage("COS20001", {}) && messages.LastAnswer() == 1, "a question stays a question");
}

}  // namespace

FuzzTarget messageTableTarget() {
    return {"message_table",
            run,
            {"COS20001,INFO,OK,\x95\xDB\x91\xB6\\n%1\\\\%9\r\n; x\r\n\r\nX1 , ASK , YESNO , a,b\n",
             "A,INFO,OK,\\n\\n\\n%1\\n\\n\\n%2\\", "A,WARN,OK,%1%1%1%0%a%", "A,INFO,OK," + std::string(5000, 'x'),
             "0123456789abcdefg,ERROR,OK,x\nA,B,C\n,,,"}};
}

}  // namespace orv::test
