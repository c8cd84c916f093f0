#include <windows.h>

#include <filesystem>
#include <string>

#include "adapters/sqlite/plain_file.h"

namespace orv {

bool isPlainOrMissing(const char* path) {
    const std::filesystem::path native(std::u8string(path, path + std::char_traits<char>::length(path)));
    const HANDLE file =
        ::CreateFileW(native.c_str(), FILE_READ_ATTRIBUTES, FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE,
                      nullptr, OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS | FILE_FLAG_OPEN_REPARSE_POINT, nullptr);
    if (file == INVALID_HANDLE_VALUE) {
        return true;
    }
    constexpr DWORD kNotPlain = FILE_ATTRIBUTE_DIRECTORY | FILE_ATTRIBUTE_DEVICE;
    BY_HANDLE_FILE_INFORMATION facts{};
    FILE_ATTRIBUTE_TAG_INFO tag{};
    const bool isKnown = ::GetFileInformationByHandle(file, &facts) != 0;
    const bool isLink = (facts.dwFileAttributes & FILE_ATTRIBUTE_REPARSE_POINT) != 0 &&
                        (::GetFileInformationByHandleEx(file, FileAttributeTagInfo, &tag, sizeof tag) == 0 ||
                         IsReparseTagNameSurrogate(tag.ReparseTag));
    ::CloseHandle(file);
    return isKnown && !isLink && (facts.dwFileAttributes & kNotPlain) == 0 && facts.nNumberOfLinks == 1;
}

}  // namespace orv
