#pragma once

#include <string>

#include "adapters/machine/registry_text.h"
#include "adapters/system/system_registry.h"
#include "adapters/win32/wide_text.h"
#include "platform/scope.h"
#include "support/temp_folder.h"

namespace orv {

/// A key of this user that replaces HKEY_LOCAL_MACHINE in this process, so that tests change no setting of the machine.
class ReplacedMachineKey : NonCopyable {
public:
    ReplacedMachineKey() : name_(L"Software\\orv-test-" + std::to_wstring(::GetCurrentProcessId())) {
        ::RegCreateKeyExW(HKEY_CURRENT_USER, name_.c_str(), 0, nullptr, REG_OPTION_NON_VOLATILE, KEY_ALL_ACCESS,
                          nullptr, &key_, nullptr);
        ::RegOverridePredefKey(HKEY_LOCAL_MACHINE, key_);
    }
    ~ReplacedMachineKey() {
        ::RegOverridePredefKey(HKEY_LOCAL_MACHINE, nullptr);
        ::RegDeleteTreeW(key_, nullptr);
        ::RegCloseKey(key_);
        ::RegDeleteKeyW(HKEY_CURRENT_USER, name_.c_str());
    }

    void clear() const { ::RegDeleteTreeW(key_, nullptr); }

private:
    std::wstring name_;
    HKEY key_ = nullptr;
};

/// The registry of Windows, with the install folder that the text file of other systems names.
class TestRegistry : public SystemRegistry {
public:
    TestRegistry(const std::string& root, const CodePage& codePage)
        : SystemRegistry(root, codePage), file_(root + "/registry.txt") {}

    std::int32_t RegOpenKeyEx(Handle hive, const std::string& subKey, std::int32_t access, Handle& key) override {
        const RegistryText text(readFile(file_));
        machine_.clear();
        if (const auto folder = text.findValue("HKEY_LOCAL_MACHINE\\SOFTWARE\\ZENTHA\\ORV", "InstallKey")) {
            const std::wstring value = toWide(*folder);
            ::RegSetKeyValueW(HKEY_LOCAL_MACHINE, L"SOFTWARE\\ZENTHA\\ORV", L"InstallKey", REG_SZ, value.c_str(),
                              static_cast<DWORD>((value.size() + 1) * sizeof(wchar_t)));
        }
        return SystemRegistry::RegOpenKeyEx(hive, subKey, access, key);
    }

private:
    ReplacedMachineKey machine_;
    std::string file_;
};

}  // namespace orv
