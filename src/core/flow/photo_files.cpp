#include "core/flow/photo_files.h"

#include <functional>

#include "config/settings.h"
#include "core/record/globals.h"
#include "logging/setting_trap.h"
#include "logging/trap.h"
#include "logging/write_log.h"
#include "platform/machine/file_system.h"
#include "platform/run_time_error.h"
#include "platform/services.h"
#include "platform/suite/file_service.h"

namespace orv {
namespace {

std::string& photoField(const PhotoSlot& slot) { return tCustomerInfo.*slot.file; }

std::string storedName(const PhotoSlot& slot) {
    return tCustomerInfo.USER_ID + "COS00000000_" + std::string(slot.fileEnd);
}

/// True for a file name without a folder. A row can contain any text, and a path would lead out of the photo folder.
bool isBareName(const std::string& name) {
    return !name.empty() && name != "." && name != ".." && name.find_first_of("\\/:") == std::string::npos;
}

/// True if the field has the form stored in the column, not that of a path.
bool namesStored(const PhotoSlot& slot) { return photoField(slot) == storedName(slot); }

/// Throws if the setting cannot be read, because its default would lead to another folder.
std::string readSetting(const std::function<std::string()>& setting) {
    std::string value;
    static_cast<void>(withSettings([&] {
        value = setting();
        return true;
    }));
    return value;
}

std::string imageFolder(const PhotoSlot& slot) {
    return readSetting([&] { return com().ImgNoFolder(slot.index); });
}

std::string storedPath(const PhotoSlot& slot) { return imageFolder(slot) + photoField(slot); }

std::string workingPath(const PhotoSlot& slot) {
    return readSetting([&] { return com().TmpNoTmpFile(slot.index); });
}

/// Returns the folder with its separator, or "" for a bare name.
std::string parentFolder(const std::string& path) { return path.substr(0, path.rfind('\\') + 1); }

/// False if the photo has been deleted. Throws if the whole folder is missing (a drive is not connected, a setting is
/// empty), so that the company keeps its photo. An empty `folder` is not checked.
bool isInPlace(const std::string& photo, const std::string& folder) {
    const FileSystem& files = *services().fileSystem;
    if (files.exists(photo)) {
        return true;
    }
    if (!folder.empty() && !files.folderExists(folder)) {
        throw RunTimeError(Failure::PathNotFound, "画像のフォルダー「" + folder + "」が見つかりません。");
    }
    return false;
}

/// The value is not logged, because it can contain line ends. So can the company's number, which comes from a row, too.
void dropPath(const PhotoSlot& slot) {
    std::string company = tCustomerInfo.USER_ID;
    std::erase_if(company, [](char c) { return static_cast<unsigned char>(c) < ' '; });
    logError("PHOTO001", "「" + company + "」の登録画像" + std::to_string(slot.index + 1) +
                             "の名前はファイル名ではありません。画像なしとして扱います。");
    photoField(slot).clear();
}

void copyOut(const PhotoSlot& slot, const std::string& stored) {
    const std::string working = workingPath(slot);
    services().fileSystem->copy(stored, working);
    photoField(slot) = working;
}

/// If the photo cannot be copied, the field becomes the path of the stored file.
void copyOutOrNameStored(const PhotoSlot& slot) {
    const std::string stored = storedPath(slot);
    if (caught([&] { copyOut(slot, stored); })) {
        photoField(slot) = stored;
    }
}

std::string replacementPath(const std::string& stored) { return stored + ".new"; }

/// A run that crashed while replacing a photo leaves the complete new file next to its place, and perhaps no old one.
void finishReplacing(const std::string& stored) {
    FileSystem& files = *services().fileSystem;
    const std::string replacement = replacementPath(stored);
    if (!files.exists(replacement)) {
        return;
    }
    if (files.exists(stored)) {
        static_cast<void>(caught([&] { files.remove(replacement); }));  // the next replacement overwrites it
    } else {
        files.rename(replacement, stored);
    }
}

bool deleteOld(const std::string& stored) {
    bool ok = true;
    if (services().fileSystem->exists(stored)) {
        services().files->FileDelete(stored, ok);
    }
    return ok || failFrom(services().files->FileError());
}

/// A photo that the operator has not changed is not written again, so it cannot be lost.
bool holdsAlready(const std::string& stored, const std::string& chosen) {
    return isInPlace(stored, parentFolder(stored)) && services().fileSystem->haveSameContent(stored, chosen);
}

/// Completes the new file before removing the old one, so that the photo is missing only for the time of a rename.
bool replaceStored(const std::string& chosen, const std::string& stored) {
    FileSystem& files = *services().fileSystem;
    const std::string replacement = replacementPath(stored);
    files.publish(chosen, replacement);
    if (!deleteOld(stored)) {
        files.remove(replacement);
        return false;
    }
    files.rename(replacement, stored);
    return true;
}

/// True if the field's file exists. A file that the operator chose in another folder can be missing.
bool isThere(const PhotoSlot& slot, const std::string& chosen) {
    const bool isOurs = namesStored(slot) || chosen == workingPath(slot);
    return isInPlace(chosen, isOurs ? parentFolder(chosen) : "");
}

bool storePhoto(const PhotoSlot& slot) {
    const std::string chosen = namesStored(slot) ? storedPath(slot) : photoField(slot);
    if (chosen.empty() || !isThere(slot, chosen)) {
        photoField(slot).clear();
        return true;
    }
    if (!isBareName(storedName(slot))) {
        throw RunTimeError(Failure::BadFileName);  // the company's number can come from a row, too
    }
    const std::string stored = imageFolder(slot) + storedName(slot);
    if (stored != chosen && !holdsAlready(stored, chosen) && !replaceStored(chosen, stored)) {
        return false;
    }
    photoField(slot) = storedName(slot);
    return true;
}

}  // namespace

void makeWorkingCopy(const PhotoSlot& slot) {
    if (photoField(slot).empty()) {
        return;
    }
    if (!isBareName(photoField(slot))) {
        dropPath(slot);
        return;
    }
    const std::string stored = storedPath(slot);
    if (namesStored(slot)) {
        finishReplacing(stored);  // only a file of this company, because a row can name any file
    }
    if (isInPlace(stored, imageFolder(slot))) {
        copyOut(slot, stored);
    } else {
        photoField(slot).clear();
    }
}

void renewWorkingCopies() {
    for (const PhotoSlot& slot : kPhotoSlots) {
        if (namesStored(slot)) {
            copyOut(slot, storedPath(slot));
        }
    }
}

void restoreWorkingPaths() {
    for (const PhotoSlot& slot : kPhotoSlots) {
        if (namesStored(slot)) {
            // Without its folder the field keeps the stored name, which the next save understands.
            static_cast<void>(caught([&] { copyOutOrNameStored(slot); }));
        }
    }
}

bool bas_Main_Companydata::PF_SaveCompanyDataOther() {
    return trapped("[ PF_SaveCompanyDataOther ] ", [] {
        for (const PhotoSlot& slot : kPhotoSlots) {
            if (!storePhoto(slot)) {
                return false;
            }
        }
        return true;
    });
}

}  // namespace orv
