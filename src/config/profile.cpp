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
        // Only a quoted value still has blanks. Leading ones are dropped; trailing ones are kept, as they always were.
        value = read.substr(std::min(read.find_first_not_of(' '), read.size()));
        return true;
    });
}

}  // namespace bas_Profile
}  // namespace orv
