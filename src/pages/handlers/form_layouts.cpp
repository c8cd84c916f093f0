#include "pages/handlers/form_layouts.h"

#include <map>
#include <string>
#include <vector>

#include "pages/handlers/page_table.h"
#include "pages/layout/page_layouts.h"

namespace orv {
namespace {

using Placements = std::vector<Placement>;
using Layouts = std::map<std::string, Placements, std::less<>>;

struct DialogLayout {
    std::string_view form;
    std::span<const Placement> (*layout)();
};

constexpr auto kDialogs = std::to_array<DialogLayout>({
    {"frm_ChangePassword", changePasswordLayout},
    {"frm_ImgCommon", imgCommonLayout},
});

Placements onFrame(std::span<const Placement> page) {
    const std::span<const Placement> frame = frameLayout();
    Placements all(frame.begin(), frame.end());
    all.insert(all.end(), page.begin(), page.end());
    return all;
}

Layouts makeLayouts() {
    Layouts layouts;
    for (const PageEntry& page : kPages) {
        layouts.emplace(pageFormName(page.number), onFrame(page.layout()));
    }
    for (const DialogLayout& dialog : kDialogs) {
        const std::span<const Placement> rows = dialog.layout();
        layouts.emplace(dialog.form, Placements(rows.begin(), rows.end()));
    }
    return layouts;
}

}  // namespace

std::span<const Placement> findLayout(std::string_view form) {
    static const Layouts kLayouts = makeLayouts();
    const auto found = kLayouts.find(form);
    return found == kLayouts.end() ? std::span<const Placement>() : found->second;
}

}  // namespace orv
