#include <sys/wait.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>

#include "private_server.h"
#include "programs/store/tool_system.h"
#include "support/temp_folder.h"

namespace orv {
namespace {

PrivateServer& server() {
    static PrivateServer shared;
    return shared;
}

}  // namespace

int runTool(const std::string& folder, const std::string& arguments, const std::string& before) {
    const std::string command =
        "cd '" + folder + "' && (" + before + "'" STORE_TOOL "' " + arguments + ") <in >out 2>err";
    const int status = std::system(command.c_str());
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

/// Root can read everything, so these capabilities are dropped.
Unreadable makeUnreadable(const std::string& path) {
    std::filesystem::permissions(path, std::filesystem::perms::none);
    return {::geteuid() == 0 ? "setpriv --bounding-set=-dac_override,-dac_read_search " : "", nullptr};
}

void closeToOthers(const std::string&) {}

void openToAllUsers(const std::string& path) { std::filesystem::permissions(path, std::filesystem::perms(0777)); }

bool isPrivate(const std::string& path) {
    return std::filesystem::status(path).permissions() == std::filesystem::perms(0600);
}

bool hasServer() { return true; }
std::string serverText(const std::string& database) { return server().text(database); }
std::string runOnServer(const std::string& database, const std::string& sql) { return server().sql(database, sql); }

const char* const kOffice = "srv";

std::shared_ptr<void> setProxy(const std::string& folder, const std::string& value) {
    const std::string registry = folder + "/registry.txt";
    writeFile(registry, readFile(registry) + "ProxyServer=" + value + "\n");
    return nullptr;
}

std::map<std::string, std::string> unpack(const std::string& folder, const std::string& archive) {
    std::map<std::string, std::string> files;
    if (std::system(("cd '" + folder + "' && tar xzf " + archive).c_str()) != 0) return files;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(folder + "/orv-support")) {
        if (entry.is_regular_file()) files[entry.path().filename()] = readFile(entry.path());
    }
    return files;
}

}  // namespace orv
