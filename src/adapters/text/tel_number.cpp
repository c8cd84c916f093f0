#include "adapters/text/tel_number.h"

#include <algorithm>
#include <array>
#include <string>

namespace orv {
namespace {

/// A kind of number: its first digits, its length, and the digits after which its two hyphens can be.
struct TelForm {
    std::string_view prefix;
    std::size_t digits;
    std::string_view firstHyphen;
    std::string_view secondHyphen;
};

/// The first row with a matching prefix decides. An area code has two to five digits, and six together with the
/// exchange.
constexpr auto kForms = std::to_array<TelForm>({
    {"0120", 10, "4", "678"},
    {"0570", 10, "4", "678"},
    {"0800", 11, "4", "7"},
    {"050", 11, "3", "7"},
    {"060", 11, "3", "7"},
    {"070", 11, "3", "7"},
    {"080", 11, "3", "7"},
    {"090", 11, "3", "7"},
    {"0", 10, "2345", "6"},
});

struct Parts {
    std::string digits;
    /// The number of digits before each hyphen, as one digit. Ten or more become a colon, which no form allows.
    std::string hyphens;
};

Parts partsOf(std::string_view text) {
    Parts parts;
    for (const char character : text) {
        if (character == '-') {
            parts.hyphens += static_cast<char>('0' + std::min<std::size_t>(parts.digits.size(), 10));
        } else {
            parts.digits += character;
        }
    }
    return parts;
}

bool canStand(std::string_view hyphens, const TelForm& form) {
    if (!hyphens.empty() && form.firstHyphen.find(hyphens.front()) != std::string_view::npos) {
        hyphens.remove_prefix(1);
    }
    if (!hyphens.empty() && form.secondHyphen.find(hyphens.front()) != std::string_view::npos) {
        hyphens.remove_prefix(1);
    }
    return hyphens.empty();
}

}  // namespace

TelFault telFaultOf(std::string_view text) {
    if (text.empty()) {
        return TelFault::Empty;
    }
    if (text.find_first_not_of("0123456789-") != std::string_view::npos) {
        return TelFault::Characters;
    }
    const Parts parts = partsOf(text);
    if (!parts.digits.starts_with('0') || parts.digits.starts_with("00")) {
        return TelFault::Leading;
    }
    const auto* form =
        std::ranges::find_if(kForms, [&](const TelForm& row) { return parts.digits.starts_with(row.prefix); });
    if (parts.digits.size() != form->digits) {
        return TelFault::Digits;
    }
    return canStand(parts.hyphens, *form) ? TelFault::None : TelFault::Hyphens;
}

}  // namespace orv
