#include "config/profile.h"

#include <algorithm>

#include "logging/trap.h"
#include "platform/machine/profile_reader.h"
#include "platform/services.h"

namespace orv {
inline namespace bas_Profile {

bool PF_GetProFile(const std::string& file, const std::string& section, const std::string& key, std::string& value) {
    return trapped("[ PF_GetProFile ] ", [&] {
        const std::string read = services().profiles->GetPrivateProfileString(section, key, file);
        // Only a value in quotes still has blanks. Those in front go; those behind it have always come through.
        value = read.substr(std::min(read.find_first_not_of(' '), read.size()));
        return true;
    });
}

}  // namespace bas_Profile
}  // namespace orv
