#include <algorithm>
#include <cstring>

#include "adapters/system/system_registry.h"
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

LSTATUS query(HKEY key, const std::wstring& name, DWORD& type, std::vector<unsigned char>& bytes) {
    DWORD count = 0;
    LSTATUS result = ::RegQueryValueExW(key, name.c_str(), nullptr, &type, nullptr, &count);
    while (result == ERROR_SUCCESS || result == ERROR_MORE_DATA) {
        bytes.resize(count);
        result = ::RegQueryValueExW(key, name.c_str(), nullptr, &type, bytes.data(), &count);
        if (result == ERROR_SUCCESS) {
            bytes.resize(count);
            break;
        }
    }
    return result;
}

}  // namespace

std::int32_t SystemRegistry::open(Handle hive, const std::string& subKey, std::int32_t access,
                                  SystemKey& opened) const {
    LSTATUS last = ERROR_SUCCESS;
    for (const REGSAM view : listViews(systemHandle(hive))) {
        HKEY key = nullptr;
        const LSTATUS result =
            ::RegOpenKeyExW(systemHandle(hive), wideName(subKey).c_str(), 0, static_cast<REGSAM>(access) | view, &key);
        if (result == ERROR_SUCCESS) {
            opened.emplace_back(key);
        } else {
            last = result;
        }
    }
    return opened.empty() ? last : ERROR_SUCCESS;
}

/// A value of the first view that has it.
std::int32_t SystemRegistry::read(const SystemKey& key, const std::string& name, std::string& value) const {
    std::vector<unsigned char> bytes;
    DWORD type = REG_NONE;
    LSTATUS result = ERROR_FILE_NOT_FOUND;
    for (auto view = key.begin(); view != key.end() && result == ERROR_FILE_NOT_FOUND; ++view) {
        result = query(view->get(), wideName(name), type, bytes);
    }
    if (result == ERROR_SUCCESS) {
        value = valueText(type, bytes, codePage_);
    }
    return result;
}

std::int32_t SystemRegistry::write(const SystemKey& key, const std::string& name, std::int32_t type,
                                   const std::string& value, std::int32_t byteCount) const {
    const std::vector<unsigned char> bytes = toBytes(type, value, codePage_, byteCount);
    return ::RegSetValueExW(key.front().get(), wideName(name).c_str(), 0, static_cast<DWORD>(type), bytes.data(),
                            static_cast<DWORD>(bytes.size()));
}

/// An existing key is changed where it is.
std::int32_t SystemRegistry::create(Handle hive, const std::string& subKey, std::int32_t access,
                                    SystemKey& created) const {
    if (open(hive, subKey, access, created) == ERROR_SUCCESS) {
        return ERROR_SUCCESS;
    }
    HKEY key = nullptr;
    const LSTATUS result =
        ::RegCreateKeyExW(systemHandle(hive), wideName(subKey).c_str(), 0, nullptr, 0,
                          static_cast<REGSAM>(access) | listViews(systemHandle(hive)).back(), nullptr, &key, nullptr);
    if (result == ERROR_SUCCESS) {
        created.emplace_back(key);
    }
    return result;
}

}  // namespace orv
