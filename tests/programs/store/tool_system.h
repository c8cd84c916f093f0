#pragma once

#include <map>
#include <memory>
#include <string>

namespace orv {

// The tool's surroundings in these tests, which each system has in its own way.

/// Runs the tool in a folder, with its input and outputs in the files in, out and err there. `before` is shell code
/// that runs first. Returns the exit status, or -1 if the tool crashes.
int runTool(const std::string& folder, const std::string& arguments, const std::string& before);

/// A file that the tool cannot read while this exists, when it runs with `before`.
struct Unreadable {
    std::string before;
    std::shared_ptr<void> held;
};
Unreadable makeUnreadable(const std::string& path);

/// Lets only this user open a new file or folder, on a system where it is open to others.
void closeToOthers(const std::string& path);
/// Lets all users read and write the file, or the folder and its new files.
void openToAllUsers(const std::string& path);
/// True if only this user can open the file.
bool isPrivate(const std::string& path);

/// True if the tool can use a server. The other functions need one.
bool hasServer();
/// Returns the text that names a database of the server.
std::string serverText(const std::string& database);
/// Runs `sql` there without the tool. Returns one line per row.
std::string runOnServer(const std::string& database, const std::string& sql);

/// The folder that a person names as the office that is in srv.
extern const char* const kOffice;
/// Sets a value that the registry of that office has in the user's section of the proxy, until the result is destroyed.
std::shared_ptr<void> setProxy(const std::string& folder, const std::string& value);

/// Returns the files of a compressed tar archive in a folder.
std::map<std::string, std::string> unpack(const std::string& folder, const std::string& archive);

}  // namespace orv
