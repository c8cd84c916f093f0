#include "core/flow/photo_files.h"

#include "config/shared_settings.h"
#include "core/record/globals.h"
#include "logging/error_pair.h"
#include "logging/trap.h"
#include "platform/machine/file_system.h"
#include "platform/services.h"
#include "platform/suite/file_service.h"

namespace orv {
namespace {

std::string& fieldOf(const PhotoSlot& slot) { return tCustomerInfo.*slot.file; }

std::string storedName(const PhotoSlot& slot) {
    return tCustomerInfo.USER_ID + "COS00000000_" + std::string(slot.suffix);
}

/// The field has the form of the column, and not that of a path.
bool namesStored(const PhotoSlot& slot) {
    const std::string& field = fieldOf(slot);
    return !field.empty() && field.find('\\') == std::string::npos;
}

std::string storedPath(const PhotoSlot& slot) { return com().ImgNoFolder(slot.index) + fieldOf(slot); }

void copyOut(const PhotoSlot& slot, const std::string& stored) {
    const std::string working = com().TmpNoTmpFile(slot.index);
    services().fileSystem->copy(stored, working);
    fieldOf(slot) = working;
}

std::string besideOf(const std::string& stored) { return stored + ".new"; }

/// A run that died while it replaced a photo has left the new one, whole, beside its place, and perhaps no old one.
void finishReplacing(const std::string& stored) {
    FileSystem& files = *services().fileSystem;
    const std::string beside = besideOf(stored);
    if (!files.exists(beside)) {
        return;
    }
    if (files.exists(stored)) {
        static_cast<void>(caught([&] { files.remove(beside); }));  // the next replacement overwrites it
    } else {
        files.rename(beside, stored);
    }
}

bool deleteOld(const std::string& stored) {
    bool ok = true;
    if (services().fileSystem->exists(stored)) {
        services().files->FileDelete(stored, ok);
    }
    return ok || failFrom(services().files->FileError());
}

/// A photo that the operator has not changed stays where it is: what is not touched cannot be lost.
bool holdsAlready(const std::string& stored, const std::string& chosen) {
    const FileSystem& files = *services().fileSystem;
    if (!files.canOpen(stored) || files.sizeOf(stored) != files.sizeOf(chosen)) {
        return false;
    }
    const std::size_t size = files.sizeOf(stored);
    return files.read(stored, size) == files.read(chosen, size);
}

/// The new file is whole beside its place before the old one goes, so that no photo is lost for longer than a rename.
bool replaceStored(const std::string& chosen, const std::string& stored) {
    FileSystem& files = *services().fileSystem;
    const std::string beside = besideOf(stored);
    files.copy(chosen, beside);
    files.share(beside);
    if (!deleteOld(stored)) {
        files.remove(beside);
        return false;
    }
    files.rename(beside, stored);
    return true;
}

bool place(const PhotoSlot& slot) {
    std::string& field = fieldOf(slot);
    if (field.empty() || !services().fileSystem->exists(field)) {
        field.clear();
        return true;
    }
    const std::string stored = com().ImgNoFolder(slot.index) + storedName(slot);
    if (stored != field && !holdsAlready(stored, field) && !replaceStored(field, stored)) {
        return false;
    }
    field = storedName(slot);
    return true;
}

}  // namespace

void takeWorkingCopy(const PhotoSlot& slot) {
    if (fieldOf(slot).empty()) {
        return;
    }
    const std::string stored = storedPath(slot);
    finishReplacing(stored);
    if (services().fileSystem->exists(stored)) {
        copyOut(slot, stored);
    } else {
        fieldOf(slot).clear();
    }
}

void workingCopiesAgain() {
    for (const PhotoSlot& slot : kPhotoSlots) {
        if (namesStored(slot)) {
            copyOut(slot, storedPath(slot));
        }
    }
}

void pathsAgainWhateverHappens() {
    for (const PhotoSlot& slot : kPhotoSlots) {
        if (namesStored(slot)) {
            const std::string stored = storedPath(slot);
            if (caught([&] { copyOut(slot, stored); })) {
                fieldOf(slot) = stored;
            }
        }
    }
}

bool bas_Main_Companydata::PF_SaveCompanyDataOther() {
    return trapped("[ PF_SaveCompanyDataOther ] ", [] {
        for (const PhotoSlot& slot : kPhotoSlots) {
            if (!place(slot)) {
                return false;
            }
        }
        return true;
    });
}

}  // namespace orv
