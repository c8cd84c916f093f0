#include <sys/utsname.h>

#include <regex>

#include "adapters/machine/registry_text.h"
#include "adapters/posix/native_file.h"
#include "office_place.h"

namespace orv {
namespace {

constexpr std::size_t kLargestText = std::size_t{16} << 20;

std::string systemName() {
    const std::string text = readWholeFile("/etc/os-release", kLargestText);
    std::smatch name;
    return std::regex_search(text, name, std::regex("PRETTY_NAME=\"?([^\"\n]*)")) ? name[1].str() : "";
}

std::string kernelName() {
    utsname names{};
    ::uname(&names);
    return std::string(names.sysname) + " " + names.release + " " + names.machine;
}

}  // namespace

const char* const kFileOfOffice = "registry.txt";

SystemPaths officePaths(const std::string& root) { return {root, root + "/C/ORV/BIN"}; }

std::string installFolder(const std::string& root) {
    return RegistryText(registryText(root)).findValue(fullKey(kInstallFolder), kInstallFolder.name).value_or("C:\\ORV");
}

std::string registryText(const std::string& root) { return readWholeFile(root + "/registry.txt", kLargestText); }

nlohmann::ordered_json systemVersions() { return {{"system", systemName()}, {"kernel", kernelName()}}; }

}  // namespace orv
