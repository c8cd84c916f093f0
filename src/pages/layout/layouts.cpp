#include "pages/layout/layouts.h"

#include <map>
#include <vector>

#include "pages/layout/page_layouts.h"

namespace orv {
namespace {

using Placements = std::vector<Placement>;

Placements onFrame(std::span<const Placement> page) {
    const std::span<const Placement> frame = frameLayout();
    Placements all(frame.begin(), frame.end());
    all.insert(all.end(), page.begin(), page.end());
    return all;
}

Placements alone(std::span<const Placement> dialog) { return {dialog.begin(), dialog.end()}; }

const std::map<std::string_view, Placements>& layouts() {
    static const std::map<std::string_view, Placements> all{
        {"frm_CompInp0", onFrame(compInp0Layout())}, {"frm_CompInp1", onFrame(compInp1Layout())},
        {"frm_CompInp2", onFrame(compInp2Layout())}, {"frm_CompInp3", onFrame(compInp3Layout())},
        {"frm_CompInp4", onFrame(compInp4Layout())}, {"frm_ChangePassword", alone(changePasswordLayout())},
        {"frm_ImgCommon", alone(imgCommonLayout())},
    };
    return all;
}

}  // namespace

std::span<const Placement> findLayout(std::string_view form) {
    const auto found = layouts().find(form);
    return found == layouts().end() ? std::span<const Placement>() : found->second;
}

}  // namespace orv
