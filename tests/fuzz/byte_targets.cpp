#include <algorithm>
#include <chrono>
#include <cstdint>

#include "adapters/http/company_document.h"
#include "adapters/pictures/made_pictures.h"
#include "adapters/pictures/picture_files.h"
#include "adapters/posix/ini_reader.h"
#include "adapters/sqlite/left_rewriter.h"
#include "adapters/store/ascii_fold.h"
#include "adapters/text/cp932.h"
#include "adapters/text/era_calendar.h"
#include "adapters/text/help_file.h"
#include "adapters/text/table_messages.h"
#include "fuzz/fuzz_target.h"
#include "platform/run_time_error.h"
#include "platform/utf8.h"
#include "support/fake_windows.h"
#include "support/memory_machine.h"
#include "support/scripted_machine.h"

namespace orv::test {
namespace {

std::string tookLine(std::string& rest) {
    const std::string line = rest.substr(0, rest.find('\n'));
    rest.erase(0, line.size() + 1);
    return line;
}

/// Tests the settings reader. Section and key are the first two lines; the file follows.
void feedSettings(const std::string& bytes) {
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
    // Counts bytes in the file, because a byte that is not a character becomes a longer one.
    require(toCharacters(value).size() <= kLongestValue, "a value is cut");
    require(value.find_first_of("\r\n") == std::string::npos, "a value is of one line");
    static_cast<void>(reader.GetPrivateProfileString("PATH", "SYS", file));
}

/// Tests the code page in both directions. Converting back loses no more than the first conversion did.
void feedCodePage(const std::string& bytes) {
    static const Cp932 codePage;
    const std::string text = codePage.decode(bytes);
    require(toUtf8(toCharacters(text)) == text, "decoding gives valid UTF-8");
    require(codePage.decode(codePage.encode(text)) == text, "a decoded character is in the code page");
    const std::string encoded = codePage.encode(bytes);
    require(encoded.size() <= bytes.size() + 1 || toCharacters(bytes).size() * 2 >= encoded.size(),
            "at most two bytes a character");
    require(codePage.encode(codePage.decode(encoded)) == encoded, "an encoded text decodes to itself");
}

class CheckedNotice : public NoWindows {
public:
    std::size_t showNotice(const Notice& notice) override {
        constexpr std::size_t kFitsOnAScreen = 16'000;
        require(isShowable(notice.text, "\n") && notice.text.size() < kFitsOnAScreen, "a notice can be shown");
        return notice.escapeButton;
    }
};

/// Tests the message file, and a message from it with values from outside.
void feedMessageTable(const std::string& bytes) {
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

/// Tests the help file. Its text is shown, or the failure has a text.
void feedHelp(const std::string& bytes) {
    static const Cp932 codePage;
    static const FixedFacts facts;
    constexpr const char* kFile = "C:\\ORV\\HLP\\help.hlp";
    MemoryFiles files;
    files.put(kFile, bytes);
    const IniReader reader(files, codePage, facts);
    NoWindows windows;
    HelpFile help(windows, files, reader, [] { return std::string(kFile); });
    require(help.ShowHelp("cmd_Entry", "IMG") == help.ErrorInfo().text.empty(),
            "a help text is shown or its failure has a text");
}

void read(const PictureFiles& pictures, const std::string& path, const std::string& target) {
    const PictureInfo info = pictures.info(path);
    // Decoding many claimed pixels is limited, but would take too long here.
    constexpr std::int64_t kWorthTrying = 4'000'000;
    if (std::int64_t{info.width} * info.height > kWorthTrying) {
        return;
    }
    const auto picture = pictures.load(path, {64, 48});
    picture->size(std::min(info.width, 64), std::min(info.height, 48));
    picture->save(target, info.format, info.bits, 100);
    static_cast<void>(pictures.load(target));
}

/// Tests pictures: header, decoding, resizing and saving. Any input is a picture or a failure with a text.
void feedPicture(const std::string& bytes) {
    static PictureFolder folder;
    static const PictureFiles pictures(folder);
    const std::string path = folder.keep("picture", {bytes.begin(), bytes.end()});
    try {
        read(pictures, path, folder.pathOf("saved"));
    } catch (const RunTimeError& error) {
        require(!error.description().empty(), "a failure has a text");
    }
}

/// Tests the server's answer to a company. Its id is used unchanged in statements, file names and an argument.
void feedServerAnswer(const std::string& bytes) {
    const auto id = idInAnswer(bytes);
    if (id) {
        require(!id->empty() && id->size() <= 64, "an id has a length");
        constexpr std::string_view kPlain = "0123456789ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz";
        require(id->find_first_not_of(kPlain) == std::string::npos, "an id leads nowhere");
    }
}

std::string withoutQuotes(std::string sql) {
    sql = folded(sql);
    std::erase(sql, '"');
    return sql;
}

/// Tests a statement before the engine. Only quotes around names of calls change.
void feedStatement(const std::string& bytes) {
    const std::string once = quoteLeftCalls(bytes);
    require(withoutQuotes(once) == withoutQuotes(bytes), "nothing but quotes changes");
    require(quoteLeftCalls(once) == once, "a quoted call is quoted");
}

/// Tests dates of the pages. A text read as a date is valid, and means the same in Western years.
void feedEraDate(const std::string& bytes) {
    const EraCalendar calendar;
    const auto date = calendar.dateOf(bytes);
    if (!date) {
        return;
    }
    const std::chrono::year_month_day day{std::chrono::year{date->year},
                                          std::chrono::month{static_cast<unsigned>(date->month)},
                                          std::chrono::day{static_cast<unsigned>(date->day)}};
    require(day.ok() && date->year >= 100 && date->year <= 9999, "a date is on the calendar");
    const auto again = calendar.dateOf(formatMoment(*date, "yyyy") + "年" + std::to_string(date->month) + "月" +
                                       std::to_string(date->day) + "日");
    require(again == date, "the same date in western years is the same date");
}

std::vector<std::string> pictureSeeds() {
    std::vector<std::string> seeds;
    for (const ByteVector& bytes :
         {madeJpeg({.width = 33, .height = 17, .orientation = 6}),
          madeJpeg({.width = 33, .height = 17, .progressive = true}),
          madeJpeg({.width = 17, .height = 9, .input = JCS_CMYK, .stored = JCS_YCCK}), madeByQt("png", 9, 9),
          madeByQt("bmp", 9, 9), madeRunLengthBmp(9, 9), madeGif(9, 9)}) {
        seeds.emplace_back(bytes.begin(), bytes.end());
    }
    return seeds;
}

}  // namespace

std::vector<FuzzTarget> byteTargets() {
    return {
        {"settings",
         feedSettings,
         {"PATH\nSYS\n[PATH]\r\nSYS=C:\\ORV\\SYS\r\n", "s\nk\n[ S ] ; x\n;k=1\n k = \" v \"\n[S]\nk=2",
          "ゾーン\nソート\n[\x83\x5D\x81\x5B\x83\x93]\n\x83\x5C\x81\x5B\x83\x67=\x83\x5C",
          "S\nK\n\xEF\xBB\xBF[S\rK='v\x81'\r", "S\nK\n[S]\nK=" + std::string(510, 'a') + "\x83\x5C",
          "S\nK\n[S]\nK=" + std::string(511, '\xFF')}},
        {"code_page",
         feedCodePage,
         {"\x83\x5C\x95\x5C \xB1\xB2\r\n", "\xFA\x40\xED\x40\x81\xCA\x87\x82", "\x80\xA0\xFD\xFE\xFF\x81\n\x85\x40",
          "ソ表～－∥￢①Ⅱ㈱髙﨑", "\xF0\x9F\x8F\xA0 \xED\xA0\x80 \xC0\x80 \xF4\x90\x80\x80"}},
        {"message_table",
         feedMessageTable,
         {"COS20001,INFO,OK,\x95\xDB\x91\xB6\\n%1\\\\%9\r\n; x\r\n\r\nX1 , ASK , YESNO , a,b\n",
          "A,INFO,OK,\\n\\n\\n%1\\n\\n\\n%2\\", "A,WARN,OK,%1%1%1%0%a%", "A,INFO,OK," + std::string(5000, 'x'),
          "0123456789abcdefg,ERROR,OK,x\nA,B,C\n,,,"}},
        {"help",
         feedHelp,
         {"[IMG]\r\ncmd_Entry=0,\x8A\x6D\x92\xE8,\x89\xE6\x91\x9C\r\n", "[SSX]\ncmd_Entry=0,a,b\n[img]\nCMD_ENTRY=1,,",
          "[IMG]\ncmd_Entry=\"0,\x81,\x81\"", "[IMG]\ncmd_Entry=0,a"}},
        {"picture", feedPicture, pictureSeeds()},
        {"server_answer",
         feedServerAnswer,
         {R"({"id": "000005001"})", R"({"id":"a'b","x":[{"id":1e999}]})", R"({"id":"../../../"})",
          R"({"id":"\u0000\ud83c\udfe0"})", R"({"id":"\ud800"})", "\xEF\xBB\xBF{\"id\":\"\xC2\x80\"}",
          std::string(500, '['), R"([{"id":"1"}])"}},
        {"statement",
         feedStatement,
         {"select Left(A, 2), left /* ( */ -- (\n(B,1) from T where X = 'it''s Left(C, 2)'",
          "select \"Left(A\", [left(B)], `Left(C)` left join U", "Left(Left(A, 3), 2)''Left(A,1)", "'left(", "[left(",
          "/*left(", "--left("}},
        {"era_date",
         feedEraDate,
         {"令和8年5月4日", "令和元年05月01日", "平成36年03月31日", "明治01年01月25日", "昭和9999年12月31日",
          "49年2月29日", "2028年02月29日", "0年1月1日", "9999999999年1月1日"}},
    };
}

}  // namespace orv::test
