#include "adapters/text/help_file.h"

#include "platform/run_time_error.h"

namespace orv {
namespace {

struct HelpText {
    std::string name;
    std::string text;
};

/// Returns empty texts if the line does not have both parts.
HelpText parsed(const std::string& line) {
    const std::size_t first = line.find(',');
    const std::size_t second = first == std::string::npos ? first : line.find(',', first + 1);
    if (second == std::string::npos) {
        return {};
    }
    return {line.substr(first + 1, second - first - 1), line.substr(second + 1)};
}

}  // namespace

bool HelpFile::ShowHelp(const std::string& controlName, const std::string& group) {
    failure_ = {};
    try {
        return show(controlName, group);
    } catch (const RunTimeError& error) {
        failure_ = {"ヘルプを表示できません。" + error.description(), std::to_string(error.number())};
        return false;
    }
}

bool HelpFile::show(const std::string& controlName, const std::string& group) {
    const std::string path = path_();
    if (!files_.exists(path)) {
        failure_ = {"ヘルプファイルがありません。\r\n" + path, "HELP0001"};
        return false;
    }
    const HelpText help = parsed(profiles_.GetPrivateProfileString(group, controlName, path));
    if (help.name.empty() || help.text.empty()) {
        failure_ = {"この項目の説明が、ヘルプファイルにありません。\r\n" + path + " [" + group + "] " + controlName,
                    "HELP0002"};
        return false;
    }
    windows_.showNotice({.title = "ヘルプ", .text = help.name + "\n\n" + help.text, .buttons = {"閉じる"}});
    return true;
}

}  // namespace orv
