#pragma once

#include <map>
#include <memory>
#include <string>
#include <string_view>

struct pg_conn;

namespace orv {

/// The settings of a connection by their names, as the client library has them.
using ServerSettings = std::map<std::string, std::string, std::less<>>;

/// Reads the text that stands at the place of a store and names the server: settings in the library's own form, over as
/// many lines as one likes, `#` beginning a line that is for the reader only.
/// Failure: a StoreFailure "DBFILE04" to "DBFILE09"; a text that holds a password, or a setting that is not on the
/// short list of those that are safe in a file of the office, is refused.
ServerSettings readServerText(const std::string& nativePath);

struct ConnectionCloser {
    void operator()(pg_conn* connection) const noexcept;
};
using ServerConnection = std::unique_ptr<pg_conn, ConnectionCloser>;

/// Empty for a setting that is not made.
std::string findSetting(const ServerSettings& settings, std::string_view name);

/// Begins a connection with these settings and texts in UTF-8. Never null.
ServerConnection startConnection(const ServerSettings& settings);

/// All settings of a connection, with those of the named service and of the environment. Contacts nobody.
/// What decides on security is strict unless the text, the service or the environment says otherwise: the server's
/// certificate and name must be right, and TLS is 1.2 at least.
/// Failure: a StoreFailure "DBFILE08" for a key that is not a plain file, also if the service or the
/// environment names it: the library would load code; also if the text names where to connect while the service or the
/// environment has a password that is not bound to a server.
ServerSettings settled(const ServerSettings& named);

/// The settings for one host. Where a password could go over a network, the server must prove over TLS that it knows it
/// (channel binding), so that nobody can ask for it in the clear.
ServerSettings secured(ServerSettings host);

}  // namespace orv
