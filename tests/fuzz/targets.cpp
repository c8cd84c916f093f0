#include <chrono>
#include <cstdlib>

#include "adapters/http/company_document.h"
#include "adapters/pictures/picture_files.h"
#include "adapters/posix/sibling_words.h"
#include "adapters/sqlite/left_rewriter.h"
#include "adapters/text/manual_pages.h"
#include "adapters/text/table_messages.h"
#include "fuzz/fuzz_target.h"
#include "support/fixture.h"
#include "support/made_pictures.h"

namespace orv::test {
namespace {

/// The machine of every target: files by their own paths, and the program's readers.
struct Machine : PictureFolder {
    /// Writes the bytes to a file and returns its path.
    std::string kept(const std::string& bytes) const { return keep("file", {bytes.begin(), bytes.end()}); }

    Cp932 codePage;
    FixedFacts facts;
    IniReader settings{*this, codePage, facts};
    PictureFiles pictures{*this};
};

const Machine& machine() {
    static const Machine one;
    return one;
}

std::string tookLine(std::string& rest) {
    const std::string line = rest.substr(0, rest.find('\n'));
    rest.erase(0, line.size() + 1);
    return line;
}

/// Tests the settings reader. Section and key are the first two lines; the file follows.
void feedSettings(const std::string& bytes) {
    constexpr std::size_t kLongestValue = 511;
    std::string file = bytes;
    const std::string section = tookLine(file);
    const std::string key = tookLine(file);
    const std::string value = machine().settings.GetPrivateProfileString(section, key, machine().kept(file));
    require(value == toUtf8(toCharacters(value)), "a value is valid UTF-8");
    // Counts bytes in the file, because a byte that is not a character becomes a longer one.
    require(toCharacters(value).size() <= kLongestValue, "a value is cut");
    require(value.find_first_of("\r\n") == std::string::npos, "a value is of one line");
}

/// Tests the code page in both directions. Converting back loses no more than the first conversion did.
void feedCodePage(const std::string& bytes) {
    const Cp932& codePage = machine().codePage;
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
    const std::string path = machine().kept(bytes);
    CheckedNotice windows;
    TableMessages messages(
        windows, machine(), machine().codePage, [&] { return path; }, [](const auto&, const auto&) {});
    const MessageFile file = readMessages(machine().codePage.decode(bytes));
    const auto lines = static_cast<std::size_t>(std::ranges::count(bytes, '\n')) + 1;
    require(file.messages.size() + file.badLines.size() <= lines, "no more messages than lines");
    for (const auto& [id, message] : file.messages) {
        require(messages.ShowMessage(id, {Value(bytes), Value("%1\n%2")}), "every message of the file is shown");
    }
    require(messages.ShowMessage(bytes, {Value(bytes)}), "an unknown one is shown");
    require(messages.ShowMessage("COS20001", {}) && messages.LastAnswer() == 1, "a question stays a question");
}

/// Tests the manual. Whatever its contents page holds, only files of its own folder are read, each once.
void feedHelp(const std::string& bytes) {
    const ByteVector content(bytes.begin(), bytes.end());
    const std::string contents = machine().keep(kManualContents, content);
    machine().keep("a.md", content);
    const std::string folder = contents.substr(0, contents.size() - std::string(kManualContents).size());
    const std::vector<ManualPage> pages = readManual(machine(), folder);
    require(pages.size() <= 2 && pages.front().file == kManualContents, "a page is read once");
    for (const ManualPage& page : pages) {
        require(page.markdown.size() <= bytes.size() + 1, "only the end of the last line is added");
    }
}

void read(const std::string& path, const std::string& target) {
    const PictureFiles& pictures = machine().pictures;
    const PictureInfo info = pictures.info(path);
    // Decoding many claimed pixels is limited, but would take too long here.
    constexpr std::int64_t kWorthTrying = 4'000'000;
    if (std::int64_t{info.width} * info.height > kWorthTrying) return;
    const auto picture = pictures.load(path, {64, 48});
    picture->size(std::min(info.width, 64), std::min(info.height, 48));
    picture->save(target, info.format, info.bits, 100);
    static_cast<void>(pictures.load(target));
}

/// Tests pictures: header, decoding, resizing and saving. Any input is a picture or a failure with a text.
void feedPicture(const std::string& bytes) {
    try {
        read(machine().kept(bytes), machine().pathTo("saved"));
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
    sql = upperAscii(sql);
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
    const auto date = calendar.parseDate(bytes);
    if (!date) return;
    const std::chrono::year_month_day day{std::chrono::year{date->year},
                                          std::chrono::month{static_cast<unsigned>(date->month)},
                                          std::chrono::day{static_cast<unsigned>(date->day)}};
    require(day.ok() && date->year >= 100 && date->year <= 9999, "a date is on the calendar");
    const auto again = calendar.parseDate(formatMoment(*date, "yyyy") + "年" + std::to_string(date->month) + "月" +
                                          std::to_string(date->day) + "日");
    require(again == date, "the same date in western years is the same date");
}

/// Runs the whole system without a screen.
class OfficeRun : public SystemTest {
public:
    void TestBody() override {}
};

std::unique_ptr<OfficeRun> theOffice;

/// Returns a target's office, shared by all its inputs. Only one exists at a time, and the previous one is destroyed
/// first.
template <class Office>
Office& sharedOffice() {
    if (dynamic_cast<Office*>(theOffice.get()) == nullptr) {
        theOffice.reset();
        theOffice = std::make_unique<Office>();
        std::atexit([] { theOffice.reset(); });
    }
    return static_cast<Office&>(*theOffice);
}

class Starts : public OfficeRun {
public:
    void runWith(const std::string& tail) {
        start(tail);
        require(!forms.forms().empty() || !shownIds().empty(), "a page or a message");
        endRun();
        require(store.open == 0, "no connection is left open");
        require(everything() == companies_ && one(kCountTables) == tables_, "no company and no table is touched");
        messages.shown.clear();
        windows.calls.clear();
        programs.commandLines.clear();
        if (const std::string log = com().LogErrFile(); files.exists(log)) files.remove(log);
    }

private:
    static constexpr const char* kCountTables = "select count(*) from sqlite_master";

    std::vector<std::string> companies_ = everything();
    std::string tables_ = one(kCountTables);
};

/// Tests the argument string. A page or a message is shown, and the store's tables are unchanged.
void feedArgument(const std::string& bytes) {
    // Longer ones are only slower, because their statement is rejected as well.
    if (bytes.size() <= 4096) sharedOffice<Starts>().runWith(bytes);
}

class Searches : public OfficeRun {
public:
    Searches() {
        start();
        page<frm_CompInp0>().chk_EqualData.setValue(0);
    }
    void receive(const std::string& said) {
        auto& form = page<frm_CompInp0>();
        form.btm_SearchOfficeAddress.press();
        const SiblingCalls calls{
            .setText = [this](auto handle, const auto& text) { return siblings.setText(named(handle), text); },
            .pressKey = [this](auto handle, int key) { return siblings.pressKey(named(handle), key); },
            .gone = [] {}};
        for (std::size_t at = 0; at < said.size() && siblings.listenedTo();) {
            const std::string line = said.substr(at, said.find('\n', at) - at);
            static_cast<void>(handleLine(line, calls));
            at += line.size() + 1;
        }
        siblings.end();
        require(form.enabled() && !siblings.listenedTo(), "the page is given back");
        for (const TextInput* field : {&form.txt_Post_Code, &form.txt_Address, &form.txt_Address_Code}) {
            require(isShowable(field->text()), "a field holds a text");
        }
        require(toCharacters(form.txt_Post_Code.text()).size() <= 8, "a post code keeps its length");
        require(codePage.encode(form.txt_Address.text()).size() <= 120, "an address keeps its length");
        require(shownIds().empty(), "invalid lines of a program show no message");
        siblings.commandLines.clear();
    }

private:
    static std::uint32_t named(std::uint32_t number) {
        const auto& form = page<frm_CompInp0>();
        const std::array<const Control*, 4> controls{&form.txt_Post_Code, &form.txt_Address, &form.txt_Address_Code,
                                                     &form.btm_SearchOfficeAddress};
        return number >= 1 && number <= controls.size() ? controls[number - 1]->handle() : number;
    }
};

/// Tests the lines that a search program sends to a waiting page. The handles of the fields are written as 1 to 3, that
/// of the button as 4.
void feedSibling(const std::string& bytes) { sharedOffice<Searches>().receive(bytes); }

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

std::vector<FuzzTarget> fuzzTargets() {
    return {
        {"argument",
         feedArgument,
         {"000004601,1,0", "---------,1,1", "000004606,1,0", "000009999,0,0", " , ,", "a,1E2,-0.5,x",
          "'; drop table TBL_LOCK; --,1,0", "x' or ''='',1,0", "\"000004601\",1,0", "ソ\xFF,１,0"}},
        {"sibling",
         feedSibling,
         {"TEXT 1 530-0001\nTEXT 2 大阪府大阪市北区梅田１丁目\nTEXT 3 27127001001\nKEY 4 13\n",
          "TEXT 2 \xFF\nTEXT 2 \x01\nTEXT 2\nKEY 4 256\nKEY 4 0", "TEXT 4294967296 x\nKEY 1 13\nkey 4 13\n \n\n",
          "TEXT 2 " + std::string(4000, 'a') + "\nTEXT 3 " + std::string(4000, '1') + "\nKEY 4 13"}},
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
         {"# 目次\n1. [a](a.md) [b](b.md#x)\n", "<a id=\"x\"></a>\n## x\n[a](a.md)[a](a.md)](", "](a.md",
          "<a id=\"></a>\n#", "<a id=\"\"></a>\n](../a.md)](c:a.md)](.md)"}},
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
