#include "adapters/win32/wide_text.h"

#include "adapters/win32/windows_api.h"

namespace orv {

std::wstring toWide(std::string_view text) {
    const int length = static_cast<int>(text.size());
    std::wstring wide(text.size(), L'\0');
    wide.resize(static_cast<std::size_t>(::MultiByteToWideChar(CP_UTF8, 0, text.data(), length, wide.data(), length)));
    return wide;
}

std::string fromWide(std::wstring_view text) {
    constexpr std::size_t kLongestCharacter = 3;  // bytes for each unit of UTF-16
    const int length = static_cast<int>(text.size());
    std::string bytes(text.size() * kLongestCharacter, '\0');
    const int count = ::WideCharToMultiByte(CP_UTF8, 0, text.data(), length, bytes.data(),
                                            static_cast<int>(bytes.size()), nullptr, nullptr);
    bytes.resize(static_cast<std::size_t>(count));
    return bytes;
}

std::string environmentValue(const wchar_t* name) {
    std::wstring value(::GetEnvironmentVariableW(name, nullptr, 0), L'\0');
    value.resize(::GetEnvironmentVariableW(name, value.data(), static_cast<DWORD>(value.size())));
    return fromWide(value);
}

}  // namespace orv
