#include "core/flow/statement_values.h"

#include <algorithm>
#include <array>
#include <string>
#include <string_view>

#include "binding/page_bindings.h"
#include "core/flow/photo_files.h"
#include "core/record/globals.h"
#include "logging/error_pair.h"
#include "pages/forms/display_names.h"
#include "pages/forms/page_form.h"

namespace orv {
namespace {

constexpr std::string_view kEndsLiteral("'\0", 2);
constexpr std::size_t kEnvironmentPage = 4;

const std::array kBindings{&kBinding0, &kBinding1, &kBinding2, &kBinding3, &kBinding4};

bool isPhoto(TextField field) {
    return std::ranges::any_of(kPhotoSlots, [&](const PhotoSlot& slot) { return slot.file == field; });
}

std::string displayName(const BindingRow& row) {
    std::string control = row.control().name();
    return P_ChgControl(control);
}

/// Returns where the field is shown, or which program sets it.
std::string placeOf(const FieldInfo& field) {
    for (std::size_t page = 0; page < kBindings.size(); ++page) {
        const auto& rows = kBindings[page]->rows;
        const auto row = std::ranges::find(rows, field.text, &BindingRow::field);
        if (row != rows.end()) {
            const std::string place =
                "「" + std::string(kPageButtons[page].caption) + "」の画面の「" + displayName(*row) + "」";
            return place + (page == kEnvironmentPage ? "は、この端末の設定から読まれています。設定を直してから、"
                                                     : "を開いて直してから、");
        }
    }
    return "項目「" + std::string(field.name) +
           "」は、ほかのプログラムが書いたものです。システムの管理者が直してから、";
}

bool endsLiteral(const FieldInfo& field) {
    return field.text != nullptr && field.table != Table::None &&
           (tCustomerInfo.*field.text).find_first_of(kEndsLiteral) != std::string::npos;
}

}  // namespace

bool valuesFitStatements(PhotoFields photos) {
    const auto found = std::ranges::find_if(kFields, [&](const FieldInfo& field) {
        return endsLiteral(field) && !(photos == PhotoFields::Chosen && isPhoto(field.text));
    });
    return found == kFields.end() ||
           fail("保存できない文字（「'」または NUL）があります。" + placeOf(*found) + "もう一度保存してください。",
                "SAVE0003");
}

}  // namespace orv
