#include "adapters/text/table_messages.h"

#include <algorithm>
#include <string_view>
#include <utility>
#include <variant>

#include "adapters/words/printable.h"
#include "platform/ascii.h"
#include "platform/run_time_error.h"
#include "platform/utf8.h"

namespace orv {
namespace {

constexpr const char* kTitle = "会社情報設定";
constexpr std::size_t kTableLimit = 1024 * 1024;
constexpr std::int32_t kGoOn = 0;
constexpr std::int32_t kStay = 1;

/// The limits of a text on the screen: for one value, so that it leaves space for the message, and for the whole.
struct TextLimit {
    std::size_t characters;
    std::size_t lines;
};
constexpr TextLimit kOneValue{800, 15};
constexpr TextLimit kWhole{2000, 40};

/// Replaces Windows line breaks by plain ones and unprintable characters by blanks, and truncates to the limits.
std::string fitted(const std::string& text, TextLimit limit) {
    std::u32string shown;
    std::size_t lines = 1;
    char32_t before = 0;
    for (const char32_t character : toCharacters(text)) {
        const bool lineBreak = character == U'\r' || character == U'\n';
        const bool secondHalf = character == U'\n' && before == U'\r';
        before = character;
        if (secondHalf) {
            continue;
        }
        lines += lineBreak ? 1 : 0;
        if (shown.size() == limit.characters || lines > limit.lines) {
            shown += U'…';
            break;
        }
        shown += lineBreak ? U'\n' : isPrintable(character) ? character : U' ';
    }
    return toUtf8(shown);
}

/// Removes the gap that an empty value leaves.
std::string closed(std::string text) {
    for (auto hole = text.find("\n\n\n"); hole != std::string::npos; hole = text.find("\n\n\n", hole)) {
        text.erase(hole, 1);
    }
    return std::string(trimmed(text, " \n"));
}

std::string shownText(const Value& value) {
    const bool plain = !value.isNull() && !std::holds_alternative<Values>(value.content());
    return plain ? fitted(toText(value), kOneValue) : "";
}

std::string joined(const std::vector<std::string>& values) {
    std::string text;
    for (const std::string& value : values) {
        text += value + "\n";
    }
    return text;
}

Notice makeNotice(const Message& message, const std::vector<std::string>& values) {
    Notice notice{kTitle, fitted(closed(expanded(message.text, values)), kWhole), message.kind};
    if (message.buttons == Message::Buttons::YesNo) {
        notice.buttons = {"はい", "いいえ"};
        notice.defaultButton = kStay;
        notice.escapeButton = kStay;
    }
    return notice;
}

}  // namespace

TableMessages::TableMessages(WindowSystem& windows, const FileSystem& files, const CodePage& codePage, Path tablePath,
                             Log log)
    : windows_(windows), files_(files), codePage_(codePage), tablePath_(std::move(tablePath)), log_(std::move(log)) {}

bool TableMessages::ShowMessage(const std::string& id, const Values& args) {
    readTable();
    std::vector<std::string> values;
    for (const Value& value : args) {
        values.push_back(shownText(value));
    }
    const auto message = table_.messages().find(id);
    return message == table_.messages().end() ? showUnknown(id, values) : show(message->second, values);
}

bool TableMessages::showUnknown(const std::string& id, const std::vector<std::string>& values) {
    log_(id, "メッセージテーブルに登録されていないメッセージです。");
    static const Message kUnknown{Notice::Kind::Warning, Message::Buttons::YesNo,
                                  "登録されていないメッセージ（%1）です。\n\n%2\n\nこのまま続けてもよろしいですか？"};
    return show(kUnknown, {fitted(id, kOneValue), fitted(joined(values), kOneValue)});
}

bool TableMessages::show(const Message& message, const std::vector<std::string>& values) {
    try {
        const std::size_t pressed = windows_.showNotice(makeNotice(message, values));
        answer_ = pressed == kGoOn ? kGoOn : kStay;
        failure_ = {};
        return true;
    } catch (const RunTimeError& error) {
        answer_ = kStay;
        failure_ = {error.description(), std::to_string(error.number())};
        return false;
    }
}

void TableMessages::readTable() {
    if (std::exchange(read_, true)) {
        return;
    }
    std::string path;
    try {
        path = tablePath_();
        const MessageFile file = readMessages(codePage_.decode(files_.read(path, kTableLimit)));
        table_.overrideBy(file.messages);
        if (!file.badLines.empty()) {
            log_("MSGTBL01", "メッセージテーブルに読めない行が" + std::to_string(file.badLines.size()) +
                                 "行あります。" + path + " の" + std::to_string(file.badLines.front()) + "行目から");
        }
    } catch (const RunTimeError& error) {
        log_(std::to_string(error.number()), "メッセージテーブルを読み込めません。" + error.description() + path);
    }
}

}  // namespace orv
