#include "adapters/system/system_files.h"

#include <array>
#include <cstring>
#include <utility>

#include "adapters/machine/path_names.h"
#include "platform/run_time_error.h"
#include "platform/utf8.h"

namespace orv {
namespace {

bool sameContent(const SystemFile& a, const SystemFile& b) {
    std::array<char, 1 << 16> left{};
    std::array<char, 1 << 16> right{};
    std::size_t count = 0;
    if (a.size() != b.size()) {
        return false;
    }
    do {
        count = a.read(left.data(), left.size());
        if (b.read(right.data(), right.size()) != count || std::memcmp(left.data(), right.data(), count) != 0) {
            return false;
        }
    } while (count > 0);
    return true;
}

void copyBytes(const SystemFile& from, const SystemFile& to) {
    std::array<char, 1 << 16> buffer{};
    while (const std::size_t count = from.read(buffer.data(), buffer.size())) {
        to.writeAll({buffer.data(), count});
    }
}

}  // namespace

void SystemFiles::workIn(const std::string& folder) {
    if (!folder.empty() && !work_.contains(upperCase(folder))) {
        work_.try_emplace(upperCase(folder), paths_, folder).first->second.removeDead();
    }
}

SystemWorkFolder* SystemFiles::findWorkFolder(const std::string& path) const {
    const auto found = work_.find(upperCase(path.substr(0, nameBegin(path))));
    return found == work_.end() || path.ends_with('\\') ? nullptr : &found->second;
}

SystemPlace SystemFiles::place(const std::string& path) const {
    SystemWorkFolder* const own = findWorkFolder(path);
    return own != nullptr ? own->place(path.substr(nameBegin(path))) : SystemPlace(paths_, path);
}

SystemFiles::Kind SystemFiles::findKind(const std::string& path) const {
    try {
        return readKind(path);
    } catch (const RunTimeError& failure) {
        if (failure.number() != static_cast<int>(Failure::BadFileName)) {
            throw;
        }
        return Kind::Nothing;
    }
}

/// Opens a file for reading and rejects one with several names, unless the operator has chosen it.
SystemHandle SystemFiles::openChecked(const std::string& path) const {
    const SystemPlace from = place(path);
    SystemHandle file = from.openToRead();
    if (!from.isChosen()) {
        requireOneName(file);
    }
    return file;
}

bool SystemFiles::canOpen(const std::string& path) const {
    try {
        const SystemFile file(openChecked(path));
        return true;
    } catch (const RunTimeError&) {
        return false;
    }
}

bool SystemFiles::haveSameContent(const std::string& a, const std::string& b) const {
    try {
        return sameContent(SystemFile(openChecked(a)), SystemFile(openChecked(b)));
    } catch (const RunTimeError&) {
        return false;
    }
}

/// Does not wait for the disk for a working file, which is needed only during the run.
void SystemFiles::copy(const std::string& from, const std::string& to) {
    const SystemFile source(openChecked(from));
    const SystemPlace target = place(to);
    if (target.holdsFile() && haveSameContent(from, to)) {
        return;
    }
    SystemReplacement copied(target, FileAccess::Private);
    copyBytes(source, copied.file());
    if (findWorkFolder(to) == nullptr) {
        copied.place();
    } else {
        copied.placeUnsynced();
    }
}

void SystemFiles::publish(const std::string& from, const std::string& to) {
    const SystemFile source(openChecked(from));
    SystemReplacement copied(place(to), FileAccess::AsFolder);
    copyBytes(source, copied.file());
    copied.place();
}

void SystemFiles::write(const std::string& path, std::span<const std::uint8_t> bytes) {
    SystemReplacement written(place(path), FileAccess::Private);
    written.file().writeAll({reinterpret_cast<const char*>(bytes.data()), bytes.size()});
    written.placeUnsynced();
}

void SystemFiles::rename(const std::string& from, const std::string& to) { place(from).renameTo(place(to)); }

void SystemFiles::append(const std::string& path, const std::string& record) {
    const SystemFile log = openLog(place(path));
    log.append(log.endsInALine() ? "\r\n" + record : record);
}

std::string SystemFiles::read(const std::string& path, std::size_t limit) const {
    return readWholeFile(nativePath(path), limit);
}

std::string SystemFiles::nativePath(const std::string& path) const {
    SystemWorkFolder* const own = findWorkFolder(path);
    return own != nullptr && own->isMade() ? own->nativePath(path.substr(nameBegin(path))) : paths_.toNative(path);
}

}  // namespace orv
