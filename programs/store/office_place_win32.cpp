#include <array>

#include "adapters/machine/registry_text.h"
#include "adapters/text/cp932.h"
#include "office_place.h"

namespace orv {
namespace {

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
    for (const RegistryValue& wanted : {kInstallFolder, kBrowserVersion, kProxyServer}) {
        std::string value;
        bool isKnown = false;
        machine.facts.SysGetRegString(wanted.key, wanted.name, std::to_string(wanted.hive.handle), value, isKnown);
        if (isKnown) {
            text.addKey(fullKey(wanted));
            text.setValue(fullKey(wanted), wanted.name, value);
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
