#pragma once

#include <map>
#include <memory>
#include <string>
#include <string_view>

struct pg_conn;

namespace orv {

/// The settings of a connection by the client library's names.
using ServerSettings = std::map<std::string, std::string, std::less<>>;

/// Reads the text that is stored in place of a store and names the server. It has settings in the library's own form on
/// any number of lines. Lines that begin with `#` are comments.
/// Throws a StoreFailure "DBFILE04" to "DBFILE09". Passwords are rejected, and so are settings that are not in the
/// short list of those that are safe in a file of the office.
ServerSettings readServerText(const std::string& nativePath);

struct ConnectionCloser {
    void operator()(pg_conn* connection) const noexcept;
};
using ServerConnection = std::unique_ptr<pg_conn, ConnectionCloser>;

/// Returns "" for a setting that is not set.
std::string findSetting(const ServerSettings& settings, std::string_view name);

/// Begins a connection with these settings and with texts in UTF-8. Never null.
ServerConnection startConnection(const ServerSettings& settings);

/// Returns all settings of a connection, including those of the named service and of the environment. Does not contact
/// a server.
/// The defaults for security are strict: the server's certificate and name are verified, and TLS is at least 1.2. The
/// text, the service or the environment can change them.
/// Throws a StoreFailure "DBFILE08" for a key that is not a plain file, because the library would load code. This
/// includes a key named by the service or the environment. The same for a text that chooses the server if the service
/// or the environment has a password for any server.
ServerSettings settled(const ServerSettings& named);

/// Returns the settings for one host. If a password could be sent over a network, the server must prove over TLS that
/// it knows the password (channel binding). Then no other server can ask for it in plain text.
ServerSettings secured(ServerSettings host);

}  // namespace orv
