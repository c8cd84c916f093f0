#include "pages/layout/layouts.h"

#include <algorithm>
#include <set>

#include "pages/controls/page_set.h"
#include "platform/utf8.h"
#include "support/form_test.h"

namespace orv {
namespace {

// Hold what the program works with; nobody ever sees them.
const std::set<std::string> kWorkingControls{
    "txt_Address_Code", "txt_Area_Code", "txt_Pc_Address_Code",  "txt_Railroad_Code",    "txt_Station_Code",
    "txt_Tiku_Code",    "pic_LeadTmp",   "txt_PhotoFilePath(0)", "txt_PhotoFilePath(1)",
};

constexpr int kGapBeforeUnit = 2;
constexpr int kTickMark = 17;
constexpr int kListArrow = 18;
constexpr int kButtonFrame = 8;
/// In percent: as narrow as the letters beside a tick may become.
constexpr int kNarrowest = 85;

/// In design pixels: a full-width character is as wide as it is high, a half-width one half of that.
int widthOf(std::string_view text, int points = 9) {
    int halves = 0;
    for (const char32_t character : toCharacters(text)) {
        const bool narrow = character < 0x80 || (character >= 0xFF61 && character <= 0xFF9F);
        halves += narrow ? 1 : 2;
    }
    return halves * points * 4 / 3 / 2;
}

struct Standing {
    const Placement* placement = nullptr;
    Control* control = nullptr;
};

std::string_view captionOf(const Control& control) {
    if (const auto* field = dynamic_cast<const TextInput*>(&control)) return field->textDesign().caption;
    if (const auto* field = dynamic_cast<const NumberInput*>(&control)) return field->numberDesign().caption;
    if (const auto* field = dynamic_cast<const ComboBox*>(&control)) return field->caption();
    return {};
}

std::string_view unitOf(const Control& control) {
    if (const auto* field = dynamic_cast<const TextInput*>(&control)) return field->textDesign().unit;
    if (const auto* field = dynamic_cast<const NumberInput*>(&control)) return field->numberDesign().unit;
    return {};
}

/// What the control takes up, its caption and its unit included.
Box footprint(const Standing& standing) {
    Box box = standing.placement->box;
    box.x -= standing.placement->captionWidth;
    box.width += standing.placement->captionWidth;
    if (const std::string_view unit = unitOf(*standing.control); !unit.empty()) {
        box.width += kGapBeforeUnit + widthOf(unit);
    }
    return box;
}

bool overlap(const Box& a, const Box& b) {
    return a.x < b.right() && b.x < a.right() && a.y < b.bottom() && b.y < a.bottom();
}

class Layouts : public FormTest {
protected:
    ~Layouts() override { dropPages(); }

    static std::vector<Form*> all() {
        std::vector<Form*> all{&page<frm_ChangePassword>()};
        for (int number = 0; number < kPageCount; ++number) {
            all.push_back(&pageAt(number));
        }
        return all;
    }

    /// In the order of the layout; placements without a control left out.
    static std::vector<Standing> standing(const Form& form) {
        std::vector<Standing> found;
        for (const Placement& placement : layoutOf(form.name())) {
            if (Control* control = form.find(placement.control, placement.index)) {
                found.push_back({&placement, control});
            }
        }
        return found;
    }
};

TEST_F(Layouts, EveryControlStandsOnceAndEveryPlaceHasItsControl) {
    for (const Form* form : all()) {
        std::multiset<std::string> placed;
        for (const Placement& placement : layoutOf(form->name())) {
            const Control* control = form->find(placement.control, placement.index);
            ASSERT_NE(control, nullptr) << form->name() << " " << placement.control << " " << placement.index;
            placed.insert(control->objectName());
        }
        for (const Control* control : form->controls()) {
            const bool working = kWorkingControls.contains(control->objectName());
            EXPECT_EQ(placed.count(control->objectName()), working ? 0U : 1U) << control->objectName();
            EXPECT_FALSE(working && control->visible()) << control->objectName();
        }
    }
    EXPECT_TRUE(layoutOf("frm_Send").empty());
}

TEST_F(Layouts, NothingOverlapsAndNothingLeavesTheWindow) {
    for (const Form* form : all()) {
        const std::vector<Standing> controls = standing(*form);
        for (std::size_t i = 0; i < controls.size(); ++i) {
            const Box box = footprint(controls[i]);
            const std::string name = form->name() + " " + controls[i].control->objectName();
            EXPECT_TRUE(box.x >= 0 && box.y >= 0 && box.width > 0 && box.height > 0) << name;
            EXPECT_TRUE(box.right() <= form->scaleWidth() && box.bottom() <= form->scaleHeight()) << name;
            for (std::size_t j = 0; j < i; ++j) {
                const std::string other = controls[j].control->name();
                if (controls[i].control->name() == "lbl_UserId" && other == "cbo_User_Id") {
                    continue;  // One of the two shows.
                }
                EXPECT_FALSE(overlap(box, footprint(controls[j]))) << name << " on " << other;
            }
        }
    }
}

int roomFor(const Standing& standing) {
    return standing.control->kind() == ControlKind::CheckBox ? standing.placement->box.width - kTickMark
           : standing.control->kind() == ControlKind::Button ? standing.placement->box.width - kButtonFrame
                                                             : standing.placement->box.width;
}

TEST_F(Layouts, CaptionsAreNotCut) {
    for (const Form* form : all()) {
        for (const Standing& each : standing(*form)) {
            const Control& control = *each.control;
            EXPECT_LE(widthOf(captionOf(control)), each.placement->captionWidth) << control.objectName();
            int width = 0;
            if (const auto* label = dynamic_cast<const Label*>(&control)) {
                width = widthOf(label->caption(), label->fontSize());
                EXPECT_GE(each.placement->box.height, label->caption().empty() ? 0 : label->fontSize() * 4 / 3);
            } else if (const auto* box = dynamic_cast<const CheckBox*>(&control)) {
                width = widthOf(box->checkDesign().caption) * kNarrowest / 100;
            } else if (const auto* button = dynamic_cast<const Button*>(&control)) {
                width = widthOf(button->caption());
            }
            EXPECT_LE(width, roomFor(each)) << control.objectName();
        }
    }
}

TEST_F(Layouts, NumbersCodesAndListsHaveRoomForWhatTheyHold) {
    for (const Form* form : all()) {
        for (const Standing& each : standing(*form)) {
            const int room = each.placement->box.width - 6;
            if (const auto* number = dynamic_cast<const NumberInput*>(each.control)) {
                EXPECT_GE(room, number->numberDesign().most > 100 ? widthOf("9999") : widthOf("99.9"));
            } else if (const auto* text = dynamic_cast<const TextInput*>(each.control);
                       text != nullptr && text->textDesign().limit.most <= 13) {
                EXPECT_GE(room, static_cast<int>(text->textDesign().limit.most) * 6) << text->name();
            }
        }
    }
    const auto placed = standing(page<frm_CompInp1>());
    for (const Standing& each : placed) {
        if (each.control->kind() == ControlKind::ComboBox) {
            EXPECT_GE(each.placement->box.width - kListArrow, widthOf("西暦西")) << each.control->name();
        }
    }
}

/// Tab goes down, or to the right, or from the foot of a column to the head of one on its right.
bool goesOn(const Box& from, const Box& to) {
    const bool down = to.y >= from.bottom() - 2;
    const bool right = to.x >= from.right();
    return down || right;
}

TEST_F(Layouts, TabGoesThroughTheFieldsAsTheyAreRead) {
    for (const Form* form : all()) {
        const std::vector<Standing> places = standing(*form);
        const Standing* last = nullptr;
        for (Control* control : form->tabOrder()) {
            const auto here = std::find_if(places.begin(), places.end(),
                                           [&](const Standing& each) { return each.control == control; });
            const bool field = control->tabRank() >= kTabFields && control->tabRank() < kTabSave &&
                               control->kind() != ControlKind::Label && control->kind() != ControlKind::Image;
            if (here == places.end() || !field) {
                continue;
            }
            if (last != nullptr) {
                EXPECT_TRUE(goesOn(last->placement->box, here->placement->box))
                    << form->name() << ": " << last->control->objectName() << " -> " << control->objectName();
            }
            last = &*here;
        }
        EXPECT_TRUE(last != nullptr || form->name() == "frm_CompInp4") << form->name();
    }
}

}  // namespace
}  // namespace orv
