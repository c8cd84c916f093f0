#include "pages/forms/display_names.h"

#include <algorithm>
#include <cctype>

#include "config/settings.h"

namespace orv {
inline namespace bas_FromCommon {
namespace {

constexpr const char* kNoName = "[P_ChgControl]にて判断できない項目";

std::string upper(std::string text) {
    std::transform(text.begin(), text.end(), text.begin(),
                   [](unsigned char letter) { return static_cast<char>(std::toupper(letter)); });
    return text;
}

}  // namespace

std::string P_ChgControl(std::string& control) {
    if (upper(control) == upper("cbo_Property_Type_Code")) {
        control = "txt_Property_Type_Code";
    }
    std::string entry;
    if (!PF_GetProFile(com().HlpFile(), "SSX", control, entry)) {
        return kNoName;
    }
    const std::size_t first = entry.find(',');
    if (first == std::string::npos) {
        return kNoName;
    }
    return entry.substr(first + 1, entry.find(',', first + 1) - first - 1);
}

}  // namespace bas_FromCommon
}  // namespace orv
