#include <array>

#include "adapters/machine/registry_text.h"
#include "adapters/text/cp932.h"
#include "office_place.h"

namespace orv {
namespace {

/// A value of the registry that the program reads.
struct RegistryValue {
    const char* hiveName;
    Registry::Handle hive;
    const char* key;
    const char* name;
};

constexpr auto kValues = std::to_array<RegistryValue>({
    {"HKEY_LOCAL_MACHINE", Registry::kLocalMachine, kInstallKey, kInstallValue},
    {"HKEY_LOCAL_MACHINE", Registry::kLocalMachine, "SOFTWARE\\Microsoft\\Internet Explorer", "Version"},
    {"HKEY_CURRENT_USER", Registry::kCurrentUser, "SOFTWARE\\Microsoft\\Windows\\CurrentVersion\\Internet Settings",
     "ProxyServer"},
});

/// The measurements of this machine.
struct Machine {
    Cp932 codePage;
    SystemRegistry registry{"", codePage};
    SystemPaths paths{"", runningProgramFolder()};
    MeasuredSystem facts{registry, paths};
};

}  // namespace

const char* const kFileOfOffice = "SYS\\system.ini";

SystemPaths officePaths(const std::string& root) { return {"", root + "\\BIN"}; }

std::string installFolder(const std::string& root) { return root; }

std::string registryText(const std::string&) {
    Machine machine;
    RegistryText text("");
    for (const RegistryValue& wanted : kValues) {
        std::string value;
        bool isKnown = false;
        machine.facts.SysGetRegString(wanted.key, wanted.name, std::to_string(wanted.hive), value, isKnown);
        if (isKnown) {
            const std::string key = std::string(wanted.hiveName) + "\\" + wanted.key;
            text.addKey(key);
            text.setValue(key, wanted.name, value);
        }
    }
    return text.text();
}

nlohmann::ordered_json systemVersions() {
    Machine machine;
    std::array<std::string, 5> facts;
    bool isKnown = false;
    machine.facts.SysGetOsInfo(facts, isKnown);
    return {{"system", facts}};
}

}  // namespace orv
