#include "pages/handlers/photo_handlers.h"

#include <cstdint>
#include <functional>
#include <optional>

#include "config/settings.h"
#include "core/record/globals.h"
#include "images/image_fit.h"
#include "images/thumbnail.h"
#include "logging/handled.h"
#include "logging/messages.h"
#include "logging/trap.h"
#include "logging/write_log.h"
#include "platform/forms/busy.h"
#include "platform/forms/form_host.h"
#include "platform/machine/file_system.h"
#include "platform/machine/window_system.h"
#include "platform/services.h"
#include "platform/suite/message_service.h"

namespace orv {
namespace {

constexpr const char* kCodePrefix = "IMGERR:";
constexpr int kCancelled = static_cast<int>(Failure::DialogCancelled);

std::string formatCode(const RunTimeError& failure) { return kCodePrefix + std::to_string(failure.number()); }

/// After a failed fitting the working file is invalid. A failure to remove it is not reported, because the fitting's
/// failure is.
void removeUnfinished(const std::string& work) {
    static_cast<void>(caught([&] {
        if (services().fileSystem->exists(work)) {
            services().fileSystem->remove(work);
        }
    }));
}

/// Ends the line before the page takes input again.
bool fit(const std::string& file, ImageControl& image, std::string& work) {
    const Working working("画像を調整しています…");
    return PF_ImeResize(file, image, work);
}

/// Disables the page while a picture is fitted, and releases the picture's pixels afterwards.
bool fitPhoto(const PhotoSlots& photos, const std::string& file, std::string& work) {
    BusyForm disabled(photos.page);
    services().forms->setPointer(kPointerHourglass);
    const bool fine = fit(file, photos.work, work);
    if (!fine) {
        removeUnfinished(work);
    }
    photos.work.clear();
    services().forms->setPointer(kPointerDefault);
    disabled.enable();
    return fine;
}

/// The content of the slot has changed even if its working copy keeps its name.
void keep(const PhotoSlots& photos, const PhotoControls& slot, const std::string& work, const std::string& slotFile) {
    services().fileSystem->copy(work, slotFile);
    tCustomerInfo.SEND_FLAG = true;
    slot.path.setText(slotFile);
    photos.page.contentChanged(slot.path);
}

/// Reads `work` and `slotFile` before any other step.
bool fitAndShow(const PhotoSlots& photos, const PhotoControls& slot, const std::string& file, std::string work,
                const std::string& slotFile) {
    if (!fitPhoto(photos, file, work)) {
        return false;
    }
    if (!work.empty()) {
        keep(photos, slot, work, slotFile);
    }
    const std::string shown = slot.path.text();
    return shown.empty() || PF_Thumbnail(slot.picture, shown);
}

std::string slotFilePath(std::size_t slot) { return com().TmpNoTmpFile(static_cast<std::int16_t>(slot)); }

/// Returns the file that the operator chooses; failure 20150 if none. An empty `startFolder` is the operator's own
/// folder.
std::string pickFile(const std::string& startFolder) {
    FileSystem& files = *services().fileSystem;
    const std::string folder = startFolder.empty() ? std::string() : files.nativePath(startFolder);
    const std::optional<std::string> file =
        services().windows->openFile({.title = "ファイルを開く", .filter = "JPEGファイル|*.jpg", .folder = folder});
    if (!file) {
        throw RunTimeError(Failure::DialogCancelled);
    }
    return files.systemPath(*file);
}

bool showPair() {
    bool shown = false;
    const auto failure = caught([&] { shown = services().message->ShowMessage("UTERR001", {gErrCode, gErrMsg}); });
    return shown && !failure;
}

/// Used if the message service fails. Shows the run-time failure, or the pair if there is none.
void showPlainBox(const std::optional<RunTimeError>& failure) {
    const Notice notice{.title = failure ? std::to_string(failure->number()) : gErrCode,
                        .text = failure ? failure->description() : gErrMsg,
                        .kind = Notice::Kind::Critical};
    static_cast<void>(caught([&] { services().windows->showNotice(notice); }));
}

/// Returns the run-time failure of `body`, if any. The pair then holds it too. `fine` is true if the body succeeded.
std::optional<RunTimeError> photoTrapped(const char* label, bool& fine, const std::function<bool()>& body) {
    clearPair();
    auto failure = caught([&] { fine = body(); });
    if (failure) {
        fine = fail(label + failure->description(), formatCode(*failure));
    }
    return failure;
}

bool pickAndShow(const PhotoSlots& photos, std::size_t slot) {
    const std::string work = com().TmpWorkImgFile();
    const std::string slotFile = slotFilePath(slot);
    std::string startFolder;
    if (!PF_GetProFile(com().SysSystemIni(), "UTILTY", "GET_IMG", startFolder)) {
        return false;
    }
    return fitAndShow(photos, photos.slots.at(slot), pickFile(startFolder), work, slotFile);
}

void pickAndReport(const PhotoSlots& photos, std::size_t slot) {
    bool fine = false;
    const auto failure = photoTrapped("[ PhotoSelect_Click ]", fine, [&] { return pickAndShow(photos, slot); });
    if (fine) {
        return;
    }
    if (failure && failure->number() == kCancelled) {
        setPair({"画像選択はキャンセルされました。\r\n" + failure->description(), formatCode(*failure)});
    } else if (!showPair()) {
        showPlainBox(failure);
    }
    logPair();
}

}  // namespace

/// Disables the button meanwhile. A disabled button loses the focus, so it is restored.
void btm_PhotoSelect_Click(const PhotoSlots& photos, std::size_t slot) {
    Button& button = photos.slots.at(slot).select;
    const bool hadFocus = photos.page.activeControl() == &button;
    button.setEnabled(false);
    pickAndReport(photos, slot);
    button.setEnabled(true);
    if (hadFocus && button.usable()) {
        button.setFocus();
    }
}

void pic_PhotoFile_OLEDrop(const PhotoSlots& photos, std::size_t slot, const std::string& file) {
    bool fine = false;
    photoTrapped("[ PhotoFile_OLEDrop ]", fine, [&] {
        return fitAndShow(photos, photos.slots.at(slot), file, com().TmpWorkImgFile(), slotFilePath(slot));
    });
    if (!fine) {
        showPair();
        logPair();
    }
}

void btm_PhotoDel_Click(const PhotoSlots& photos, std::size_t slot) {
    handled("[ CompInp2 btm_PhotoDel_Click ]", [&] {
        if (!confirm("IMGMSG01")) {
            return;
        }
        const PhotoControls& controls = photos.slots.at(slot);
        controls.group.setListIndex(-1);
        controls.path.setText("");
        controls.picture.setVisible(false);
        controls.picture.clear();
        controls.picture.setVisible(true);
    });
}

}  // namespace orv
