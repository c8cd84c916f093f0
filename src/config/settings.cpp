#include "config/settings.h"

#include <memory>

#include "core/record/globals.h"
#include "logging/trap.h"
#include "platform/ascii.h"
#include "platform/machine/profile_reader.h"
#include "platform/services.h"
#include "validation/text/text_helpers.h"

namespace orv {
namespace {

std::unique_ptr<cls_Com> theCom;
std::unique_ptr<cls_Multi_Com> theMultiCom;

}  // namespace

cls_Com& com() {
    if (!theCom) {
        theCom = std::make_unique<cls_Com>();
    }
    return *theCom;
}

cls_Multi_Com& multiCom() {
    if (!theMultiCom) {
        theMultiCom = std::make_unique<cls_Multi_Com>(com());
    }
    return *theMultiCom;
}

void dropSharedSettings() {
    theMultiCom.reset();
    theCom.reset();
    gTransmitWorkspace.reset();
    gTransmitDatabase.clear();
}

std::string P_AddBackslash(const std::string& path) {
    if (path.empty() || PF_RightB(path, 1) == "\\") {
        return path;
    }
    return path + "\\";
}

std::optional<std::size_t> findEditionAssociation() {
    constexpr std::size_t kAssociation = 3;
    return com().MinorVer() == "3" ? std::optional(kAssociation) : std::nullopt;
}

inline namespace bas_Profile {

bool PF_GetProFile(const std::string& file, const std::string& section, const std::string& key, std::string& value) {
    return trapped("[ PF_GetProFile ] ", [&] {
        const std::string read = services().profiles->GetPrivateProfileString(section, key, file);
        // Only a quoted value still has blanks. Leading ones are dropped; trailing ones are kept, as they always were.
        value = trimmedLeft(read);
    });
}

}  // namespace bas_Profile
}  // namespace orv
