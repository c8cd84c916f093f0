#include <string_view>
#include <utility>

#include "adapters/machine/registry_text.h"
#include "adapters/posix/native_file.h"
#include "adapters/system/system_registry.h"
#include "platform/ascii.h"
#include "platform/run_time_error.h"

namespace orv {
namespace {

constexpr const char* kFile = "/registry.txt";
constexpr std::size_t kLargestFile = std::size_t{16} << 20;

std::int32_t toRegistryCode(const RunTimeError& error) {
    switch (static_cast<Failure>(error.number())) {
        case Failure::FileNotFound:
            return SystemRegistry::NotFound;
        case Failure::PathNotFound:
            return SystemRegistry::NoFolder;
        case Failure::DiskFull:
            return SystemRegistry::DiskFull;
        default:
            return SystemRegistry::NoAccess;
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

RegistryText readText(const std::string& root) { return RegistryText(readWholeFile(root + kFile, kLargestFile)); }

/// A missing file is written like an empty registry.
RegistryText readForWriting(const std::string& root) {
    try {
        return readText(root);
    } catch (const RunTimeError& error) {
        if (toRegistryCode(error) != SystemRegistry::NotFound) {
            throw;
        }
        return RegistryText("");
    }
}

void writeText(const std::string& root, const RegistryText& text) {
    ReplacementFile file(FilePlace(chosenPath(root + kFile)), FileAccess::Private);
    file.file().writeAll(text.text());
    file.place();
}

bool isSingleLine(std::string_view text) { return text.find_first_of("\r\n") == std::string_view::npos; }

bool isValueName(std::string_view name) {
    return isSingleLine(name) && name.find('=') == std::string_view::npos && !name.starts_with(';') &&
           !name.starts_with('[') && name == trimmed(name, kBlanksAndTabs);
}

/// Returns the name of a key, or "" for an unknown hive.
SystemKey nameBelow(Registry::Handle hive, const std::string& subKey) {
    const auto* const found = std::ranges::find(kHives, hive, &RegistryHive::handle);
    if (found == kHives.end()) {
        return "";
    }
    SystemKey name = std::string(found->name) + "\\" + std::string(upToNul(subKey));
    while (name.ends_with('\\')) {
        name.pop_back();
    }
    return name;
}

}  // namespace

std::int32_t SystemRegistry::open(Handle hive, const std::string& subKey, std::int32_t, SystemKey& opened) const {
    opened = nameBelow(hive, subKey);
    if (opened.empty()) {
        return NoHandle;
    }
    return coded([&] { return readText(root_).hasKey(opened) ? Done : NotFound; });
}

std::int32_t SystemRegistry::read(const SystemKey& key, const std::string& name, std::string& value) const {
    return coded([&] {
        const auto found = readText(root_).findValue(key, upToNul(name));
        value = upToNul(found.value_or(""));
        return found ? Done : NotFound;
    });
}

std::int32_t SystemRegistry::write(const SystemKey& key, const std::string& name, std::int32_t,
                                   const std::string& value, std::int32_t) const {
    const auto valueName = upToNul(name);
    const auto text = upToNul(value);
    if (!isValueName(valueName) || !isSingleLine(text)) {
        return Unsuitable;
    }
    return coded([&] {
        auto registry = readForWriting(root_);
        registry.setValue(key, valueName, text);
        writeText(root_, registry);
        return Done;
    });
}

std::int32_t SystemRegistry::create(Handle hive, const std::string& subKey, std::int32_t, SystemKey& created) const {
    created = nameBelow(hive, subKey);
    if (created.empty() || !isSingleLine(created)) {
        return created.empty() ? NoHandle : Unsuitable;
    }
    return coded([&] {
        auto registry = readForWriting(root_);
        if (!registry.hasKey(created)) {
            registry.addKey(created);
            writeText(root_, registry);
        }
        return Done;
    });
}

}  // namespace orv
