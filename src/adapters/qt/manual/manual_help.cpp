#include "adapters/qt/manual/manual_help.h"

#include "adapters/qt/views/qt_text.h"
#include "platform/run_time_error.h"

namespace orv {
namespace {

constexpr const char* kPages = "manual\\";
constexpr const char* kPictures = "pictures\\";

}  // namespace

bool ManualHelp::ShowHelp(const std::string& controlName, const std::string& group) {
    failure_ = {};
    try {
        return show(controlName, group);
    } catch (const RunTimeError& error) {
        failure_ = {"ヘルプを表示できません。" + error.description(), std::to_string(error.number())};
        return false;
    }
}

bool ManualHelp::show(const std::string& controlName, const std::string& group) {
    if (!haveWindow()) {
        return false;
    }
    if (!window_->open(toQt(controlName))) {
        failure_ = {"この項目の説明が、ヘルプにありません。\r\n[" + group + "] " + controlName, "HELP0002"};
        return false;
    }
    return true;
}

/// Looks for the manual at each call until it is found, so that it can be installed later.
bool ManualHelp::haveWindow() {
    if (window_) {
        return true;
    }
    const std::string folder = folder_() + kPages;
    if (!files_.exists(folder + kManualContents)) {
        failure_ = {"ヘルプのファイルがありません。\r\n" + folder + kManualContents, "HELP0001"};
        return false;
    }
    const auto pictureFile = [this](const QString& name) {
        return toQt(files_.nativePath(folder_() + kPictures + name.toStdString()));
    };
    window_ = std::make_unique<ManualWindow>(ManualBook(readManual(files_, folder)), pictureFile, toQt(version_));
    return true;
}

}  // namespace orv
