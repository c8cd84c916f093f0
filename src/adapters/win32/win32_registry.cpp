#include "adapters/win32/win32_registry.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <utility>

#include "adapters/win32/wide_text.h"
#include "platform/ascii.h"

namespace orv {
namespace {

/// The system's handle of a hive has the sign of its 32 bits.
HKEY systemHandle(Registry::Handle hive) { return reinterpret_cast<HKEY>(static_cast<std::intptr_t>(hive)); }

/// The views in which a hive has different keys.
std::vector<REGSAM> listViews(HKEY hive) {
    return hive == HKEY_LOCAL_MACHINE ? std::vector<REGSAM>{KEY_WOW64_64KEY, KEY_WOW64_32KEY} : std::vector<REGSAM>{0};
}

std::wstring wideName(const std::string& text) { return toWide(upToNul(text)); }

bool isText(DWORD type) { return type == REG_SZ || type == REG_EXPAND_SZ || type == REG_MULTI_SZ; }

/// A text up to its first NUL. Other values are bytes of the code page, like those that a program without wide text
/// reads.
std::string valueText(DWORD type, const std::vector<unsigned char>& bytes, const CodePage& codePage) {
    if (!isText(type)) {
        return codePage.decode(std::string(upToNul({reinterpret_cast<const char*>(bytes.data()), bytes.size()})));
    }
    std::wstring wide(bytes.size() / sizeof(wchar_t), L'\0');
    std::memcpy(wide.data(), bytes.data(), wide.size() * sizeof(wchar_t));
    return fromWide(wide.substr(0, wide.find(L'\0')));
}

std::vector<unsigned char> toBytes(std::int32_t type, const std::string& value, const CodePage& codePage,
                                   std::int32_t byteCount) {
    if (isText(static_cast<DWORD>(type))) {
        const std::wstring wide = wideName(value);
        const auto* const first = reinterpret_cast<const unsigned char*>(wide.c_str());
        return {first, first + (wide.size() + 1) * sizeof(wchar_t)};
    }
    std::string bytes = codePage.encode(value);
    bytes.resize(static_cast<std::size_t>(std::max(byteCount, 0)));
    return {bytes.begin(), bytes.end()};
}

}  // namespace

Win32Registry::~Win32Registry() {
    for (const auto& [handle, views] : open_) {
        for (const HKEY key : views) {
            ::RegCloseKey(key);
        }
    }
}

Registry::Handle Win32Registry::handleFor(Views views) {
    open_[++lastHandle_] = std::move(views);
    return lastHandle_;
}

std::int32_t Win32Registry::RegOpenKeyEx(Handle hive, const std::string& subKey, std::int32_t access, Handle& key) {
    key = 0;
    Views views;
    LSTATUS last = ERROR_SUCCESS;
    for (const REGSAM view : listViews(systemHandle(hive))) {
        HKEY opened = nullptr;
        const LSTATUS result = ::RegOpenKeyExW(systemHandle(hive), wideName(subKey).c_str(), 0,
                                               static_cast<REGSAM>(access) | view, &opened);
        if (result == ERROR_SUCCESS) {
            views.push_back(opened);
        } else {
            last = result;
        }
    }
    if (views.empty()) {
        return last;
    }
    key = handleFor(std::move(views));
    return ERROR_SUCCESS;
}

std::int32_t Win32Registry::RegQueryValueEx(Handle key, const std::string& name, std::string& value,
                                            std::int32_t size) {
    const auto found = open_.find(key);
    std::int32_t result = ERROR_INVALID_HANDLE;
    for (const HKEY view : found == open_.end() ? Views() : found->second) {
        result = query(view, name, value, size);
        if (result != ERROR_FILE_NOT_FOUND) {
            break;
        }
    }
    return result;
}

std::int32_t Win32Registry::query(HKEY key, const std::string& name, std::string& value, std::int32_t size) const {
    const std::wstring wide = wideName(name);
    std::vector<unsigned char> bytes;
    DWORD type = REG_NONE;
    DWORD count = 0;
    LSTATUS result = ::RegQueryValueExW(key, wide.c_str(), nullptr, &type, nullptr, &count);
    while (result == ERROR_SUCCESS || result == ERROR_MORE_DATA) {
        bytes.resize(count);
        result = ::RegQueryValueExW(key, wide.c_str(), nullptr, &type, bytes.data(), &count);
        if (result == ERROR_SUCCESS) {
            bytes.resize(count);
            break;
        }
    }
    if (result != ERROR_SUCCESS) {
        return result;
    }
    const std::string text = valueText(type, bytes, codePage_);
    if (std::cmp_greater_equal(codePage_.encode(text).size(), size)) {
        return ERROR_MORE_DATA;
    }
    value = text;
    return ERROR_SUCCESS;
}

std::int32_t Win32Registry::RegSetValueEx(Handle key, const std::string& name, std::int32_t type,
                                          const std::string& value, std::int32_t byteCount) {
    const auto found = open_.find(key);
    if (found == open_.end()) {
        return ERROR_INVALID_HANDLE;
    }
    const std::vector<unsigned char> bytes = toBytes(type, value, codePage_, byteCount);
    return ::RegSetValueExW(found->second.front(), wideName(name).c_str(), 0, static_cast<DWORD>(type), bytes.data(),
                            static_cast<DWORD>(bytes.size()));
}

/// An existing key is changed where it is.
std::int32_t Win32Registry::RegCreateKeyEx(Handle hive, const std::string& subKey, std::int32_t access, Handle& key) {
    if (RegOpenKeyEx(hive, subKey, access, key) == ERROR_SUCCESS) {
        return ERROR_SUCCESS;
    }
    HKEY created = nullptr;
    const LSTATUS result = ::RegCreateKeyExW(systemHandle(hive), wideName(subKey).c_str(), 0, nullptr, 0,
                                             static_cast<REGSAM>(access) | listViews(systemHandle(hive)).back(),
                                             nullptr, &created, nullptr);
    key = result == ERROR_SUCCESS ? handleFor({created}) : 0;
    return result;
}

std::int32_t Win32Registry::RegCloseKey(Handle key) {
    const auto found = open_.find(key);
    if (found == open_.end()) {
        return ERROR_INVALID_HANDLE;
    }
    LSTATUS result = ERROR_SUCCESS;
    for (const HKEY view : found->second) {
        const LSTATUS closed = ::RegCloseKey(view);
        result = result == ERROR_SUCCESS ? closed : result;
    }
    open_.erase(found);
    return result;
}

}  // namespace orv
