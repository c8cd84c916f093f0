#include <windows.h>

#include <fstream>
#include <iterator>
#include <system_error>

#include "durable_file.h"

namespace orv {
namespace {

[[noreturn]] void raise(const std::filesystem::path& file) {
    throw std::system_error(static_cast<int>(::GetLastError()), std::system_category(), file.string());
}

void writeNew(const std::filesystem::path& file, std::string_view bytes) {
    const HANDLE opened =
        ::CreateFileW(file.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr);
    if (opened == INVALID_HANDLE_VALUE) {
        raise(file);
    }
    DWORD written = 0;
    const bool isWhole = ::WriteFile(opened, bytes.data(), static_cast<DWORD>(bytes.size()), &written, nullptr) != 0 &&
                         written == bytes.size() && ::FlushFileBuffers(opened) != 0;
    ::CloseHandle(opened);
    if (!isWhole) {
        raise(file);
    }
}

}  // namespace

void writeDurably(const std::filesystem::path& file, std::string_view bytes) {
    std::filesystem::path replacement = file;
    replacement += L".new";
    writeNew(replacement, bytes);
    if (::MoveFileExW(replacement.c_str(), file.c_str(), MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH) == 0) {
        raise(file);
    }
}

std::string readWhole(const std::filesystem::path& file) {
    std::ifstream stream(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), {}};
}

}  // namespace orv
