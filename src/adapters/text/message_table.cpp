#include "adapters/text/message_table.h"

#include <algorithm>
#include <array>
#include <optional>
#include <utility>

#include "platform/ascii.h"

namespace orv {
namespace {

using Kind = Notice::Kind;
using Buttons = Message::Buttons;

struct BuiltIn {
    std::string_view id;
    Kind kind;
    Buttons buttons;
    std::string_view text;
};

/// In every question いいえ keeps the present state.
constexpr auto kBuiltIn = std::to_array<BuiltIn>({
    {"00000000", Kind::Critical, Buttons::Ok, "エラーが発生しました。\n\n%2\n\nエラーコード：%1"},
    {"COSERR01", Kind::Critical, Buttons::Ok, "エラーが発生しました。\n\n%2\n\nエラーコード：%1"},
    {"UTERR001", Kind::Critical, Buttons::Ok, "入力項目の処理中にエラーが発生しました。\n\n%2\n\nエラーコード：%1"},
    {"CHECK001", Kind::Warning, Buttons::Ok, "入力内容を確認してください。\n\n%1"},
    {"CHECK002", Kind::Warning, Buttons::Ok, "%1が%2と一致しません。%3もう一度入力してください。"},
    {"CHECK003", Kind::Warning, Buttons::Ok, "%1は、半角で%2文字以上%3文字以内で入力してください。"},
    {"COS63212", Kind::Question, Buttons::YesNo,
     "%1\n\n「はい」を押すと、このままの内容で続けます。\n「いいえ」を押すと、入力に戻ります。"},
    {"COS19800", Kind::Warning, Buttons::Ok, "入力内容を確認してください。保存は行っていません。\n\n%1"},
    {"COS20001", Kind::Question, Buttons::YesNo,
     "会社を切り替えます。\n保存していない入力内容は失われます。\n\n切り替えてもよろしいですか？"},
    {"COS20002", Kind::Question, Buttons::YesNo,
     "新規の会社の入力に切り替えます。\n保存していない入力内容は失われます。\n\n切り替えてもよろしいですか？"},
    {"COS20003", Kind::Warning, Buttons::Ok,
     "ユーザＩＤ「%1」の会社情報は、他の端末で編集中です。\n編集が終わってから、もう一度操作してください。"},
    {"COS05574", Kind::Information, Buttons::Ok, "会社情報を保存し、サーバーへ送信しました。"},
    {"ADD00010", Kind::Question, Buttons::YesNo,
     "会社情報の保存と送信が済んでいません。\n保存していない入力内容は失われます。\n\n終了してもよろしいですか？"},
    {"ESSX5050", Kind::Warning, Buttons::Ok, "次の項目は、登録されている値を表示できないため空欄にしました。\n\n%1"},
    {"LOG00001", Kind::Warning, Buttons::Ok,
     "ログ「%"
     "1」に書き込めません。\nリンクか、通常のファイルでないものか、書き込みを許されていないファイルです。\n\n記録は「%"
     "2」に残します。"
     "管理者に連絡してください。"},
    {"IMGMSG01", Kind::Question, Buttons::YesNo, "画像を削除します。\n\n削除してもよろしいですか？"},
});

constexpr std::size_t kLongestId = 16;
constexpr std::size_t kLongestText = 4096;

template <class Meaning>
struct Word {
    std::string_view word;
    Meaning meaning;
};

constexpr auto kKinds = std::to_array<Word<Kind>>(
    {{"INFO", Kind::Information}, {"WARN", Kind::Warning}, {"ERROR", Kind::Critical}, {"ASK", Kind::Question}});
constexpr auto kButtons = std::to_array<Word<Buttons>>({{"OK", Buttons::Ok}, {"YESNO", Buttons::YesNo}});

template <class Meaning, std::size_t N>
std::optional<Meaning> findMeaning(std::string_view word, const std::array<Word<Meaning>, N>& words) {
    const auto found = std::ranges::find(words, word, &Word<Meaning>::word);
    return found == words.end() ? std::nullopt : std::optional(found->meaning);
}

/// Removes and returns the front of `rest` up to the next separator, or all of it. The separator is removed too.
std::string_view splitOff(std::string_view& rest, char separator) {
    const auto end = std::min(rest.find(separator), rest.size());
    const std::string_view front = rest.substr(0, end);
    rest.remove_prefix(std::min(end + 1, rest.size()));
    return front;
}

bool isId(std::string_view text) {
    return !text.empty() && text.size() <= kLongestId && std::ranges::all_of(text, isAsciiAlphanumeric);
}

std::string unescaped(std::string_view text) {
    std::string plain;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const bool escape = text[i] == '\\' && i + 1 < text.size() && (text[i + 1] == 'n' || text[i + 1] == '\\');
        i += escape ? 1 : 0;
        plain += escape && text[i] == 'n' ? '\n' : text[i];
    }
    return plain;
}

bool readLine(std::string_view line, Messages& messages) {
    const std::string_view id = trimmed(splitOff(line, ','), kLineBlanks);
    const auto kind = findMeaning(trimmed(splitOff(line, ','), kLineBlanks), kKinds);
    const auto buttons = findMeaning(trimmed(splitOff(line, ','), kLineBlanks), kButtons);
    const std::string_view text = trimmed(line, kLineBlanks);
    if (!isId(id) || !kind || !buttons || text.empty() || text.size() > kLongestText) {
        return false;
    }
    messages.insert_or_assign(std::string(id), Message{*kind, *buttons, unescaped(text)});
    return true;
}

}  // namespace

MessageFile readMessages(std::string_view content) {
    MessageFile file;
    for (std::size_t number = 1; !content.empty(); ++number) {
        const std::string_view line = trimmed(splitOff(content, '\n'), kLineBlanks);
        if (line.empty() || line.starts_with(';')) {
            continue;
        }
        if (!readLine(line, file.messages)) {
            file.badLines.push_back(number);
        }
    }
    return file;
}

MessageTable::MessageTable() {
    for (const BuiltIn& row : kBuiltIn) {
        messages_[std::string(row.id)] = {row.kind, row.buttons, std::string(row.text)};
    }
}

void MessageTable::overrideBy(const Messages& messages) {
    for (const auto& [id, message] : messages) {
        const auto [place, added] = messages_.try_emplace(id, message);
        if (!added) {
            place->second.kind = message.kind;
            place->second.text = message.text;
        }
    }
}

std::string expanded(std::string_view text, const std::vector<std::string>& values) {
    std::string full;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const bool place = text[i] == '%' && i + 1 < text.size() && text[i + 1] >= '1' && text[i + 1] <= '9';
        if (!place) {
            full += text[i];
            continue;
        }
        ++i;
        const auto index = static_cast<std::size_t>(text[i] - '1');
        full += index < values.size() ? values[index] : "";
    }
    return full;
}

}  // namespace orv
