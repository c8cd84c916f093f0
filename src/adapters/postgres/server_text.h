#pragma once

#include <map>
#include <string>

namespace orv {

/// The settings of a connection by their names, as the client library has them.
using ServerSettings = std::map<std::string, std::string, std::less<>>;

/// Reads the text that stands at the place of a store and names the server: settings in the library's own form, over as
/// many lines as one likes, `#` beginning a line that is for the reader only.
/// Failure: a StoreFailure "DBFILE04" to "DBFILE09"; a text that holds a password, or a setting that is not on the
/// short list of those that are safe in a file of the office, is refused.
ServerSettings readServerText(const std::string& nativePath);

}  // namespace orv
