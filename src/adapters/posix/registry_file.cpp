#include "adapters/posix/registry_file.h"

#include <array>
#include <string_view>
#include <utility>

#include "adapters/machine/registry_text.h"
#include "adapters/posix/native_file.h"
#include "platform/ascii.h"
#include "platform/run_time_error.h"

namespace orv {
namespace {

constexpr std::size_t kLargestFile = std::size_t{16} << 20;

constexpr std::int32_t kDone = 0;
constexpr std::int32_t kNotFound = 2;
constexpr std::int32_t kNoFolder = 3;
constexpr std::int32_t kNoAccess = 5;
constexpr std::int32_t kNoHandle = 6;
constexpr std::int32_t kBadParameter = 87;
constexpr std::int32_t kDiskFull = 112;
constexpr std::int32_t kMoreData = 234;

constexpr auto kHives = std::to_array<std::pair<Registry::Handle, std::string_view>>({
    {Registry::kLocalMachine, "HKEY_LOCAL_MACHINE"},
    {Registry::kCurrentUser, "HKEY_CURRENT_USER"},
});

std::int32_t toRegistryCode(const RunTimeError& error) {
    switch (static_cast<Failure>(error.number())) {
        case Failure::FileNotFound:
            return kNotFound;
        case Failure::PathNotFound:
            return kNoFolder;
        case Failure::DiskFull:
            return kDiskFull;
        default:
            return kNoAccess;
    }
}

template <typename Body>
std::int32_t coded(Body body) {
    try {
        return body();
    } catch (const RunTimeError& error) {
        return toRegistryCode(error);
    }
}

/// A missing file is written like an empty registry.
RegistryText readForWriting(const std::string& nativePath) {
    try {
        return RegistryText(readWholeFile(nativePath, kLargestFile));
    } catch (const RunTimeError& error) {
        if (toRegistryCode(error) != kNotFound) {
            throw;
        }
        return RegistryText("");
    }
}

void write(const std::string& nativePath, const RegistryText& text) {
    ReplacementFile file(FilePlace(chosenPath(nativePath)), FileAccess::Private);
    file.file().writeAll(text.text());
    file.place();
}

bool isSingleLine(std::string_view text) { return text.find_first_of("\r\n") == std::string_view::npos; }

bool isValueName(std::string_view name) {
    return isSingleLine(name) && name.find('=') == std::string_view::npos && !name.starts_with(';') &&
           !name.starts_with('[') && name == trimmed(name, kBlanksAndTabs);
}

}  // namespace

std::optional<std::string> RegistryFile::findName(Handle key) const {
    for (const auto& [handle, name] : kHives) {
        if (handle == key) {
            return std::string(name);
        }
    }
    const auto found = open_.find(key);
    return found == open_.end() ? std::nullopt : std::optional(found->second);
}

std::optional<std::string> RegistryFile::nameBelow(Handle hive, const std::string& subKey) const {
    auto name = findName(hive);
    const std::string_view below = upToNul(subKey);
    if (name && !below.empty()) {
        *name += "\\";
        *name += below;
    }
    while (name && name->ends_with('\\')) {
        name->pop_back();
    }
    return name;
}

Registry::Handle RegistryFile::handleFor(std::string name) {
    open_[++lastHandle_] = std::move(name);
    return lastHandle_;
}

std::int32_t RegistryFile::RegOpenKeyEx(Handle hive, const std::string& subKey, std::int32_t, Handle& key) {
    key = 0;
    auto name = nameBelow(hive, subKey);
    if (!name) {
        return kNoHandle;
    }
    return coded([&] {
        if (!RegistryText(readWholeFile(nativePath_, kLargestFile)).hasKey(*name)) {
            return kNotFound;
        }
        key = handleFor(std::move(*name));
        return kDone;
    });
}

std::int32_t RegistryFile::RegQueryValueEx(Handle key, const std::string& name, std::string& value, std::int32_t size) {
    const auto keyName = findName(key);
    if (!keyName) {
        return kNoHandle;
    }
    return coded([&] {
        const auto found = RegistryText(readWholeFile(nativePath_, kLargestFile)).findValue(*keyName, upToNul(name));
        if (!found) {
            return kNotFound;
        }
        const std::string text(upToNul(*found));
        if (std::cmp_greater_equal(codePage_.encode(text).size(), size)) {
            return kMoreData;
        }
        value = text;
        return kDone;
    });
}

std::int32_t RegistryFile::RegSetValueEx(Handle key, const std::string& name, std::int32_t, const std::string& value,
                                         std::int32_t) {
    const auto keyName = findName(key);
    if (!keyName) {
        return kNoHandle;
    }
    const auto valueName = upToNul(name);
    const auto text = upToNul(value);
    if (!isValueName(valueName) || !isSingleLine(text)) {
        return kBadParameter;
    }
    return coded([&] {
        auto registry = readForWriting(nativePath_);
        registry.setValue(*keyName, valueName, text);
        write(nativePath_, registry);
        return kDone;
    });
}

std::int32_t RegistryFile::RegCreateKeyEx(Handle hive, const std::string& subKey, std::int32_t, Handle& key) {
    key = 0;
    auto name = nameBelow(hive, subKey);
    if (!name) {
        return kNoHandle;
    }
    if (!isSingleLine(*name)) {
        return kBadParameter;
    }
    return coded([&] {
        auto registry = readForWriting(nativePath_);
        if (!registry.hasKey(*name)) {
            registry.addKey(*name);
            write(nativePath_, registry);
        }
        key = handleFor(std::move(*name));
        return kDone;
    });
}

std::int32_t RegistryFile::RegCloseKey(Handle key) { return open_.erase(key) == 1 ? kDone : kNoHandle; }

}  // namespace orv
