#include "images/file_size_text.h"

#include <array>
#include <cmath>
#include <string_view>

#include "logging/trap.h"
#include "platform/run_time_error.h"

namespace orv {
namespace {

constexpr double kUnit = 1024;

struct SizeUnit {
    double factor;
    std::string_view name;
};

constexpr std::array<SizeUnit, 3> kUnits{{{kUnit, "KB"}, {kUnit * kUnit, "MB"}, {kUnit * kUnit * kUnit, "GB"}}};

/// Rounds halves away from zero.
long long rounded(double number) {
    if (!(std::fabs(number) < 9e15)) {
        throw RunTimeError(Failure::Overflow);
    }
    return std::llround(number);
}

/// Returns one or two decimals.
std::string withDecimals(double number) {
    const long long hundredths = rounded(number * 100);
    std::string text = std::to_string(hundredths / 100) + "." + std::to_string(hundredths % 100 / 10);
    if (hundredths % 10 != 0) {
        text += std::to_string(hundredths % 10);
    }
    return text;
}

}  // namespace

std::string bas_Image::PF_GetFileSizeString(double size) {
    return trappedOr<std::string>("[ PF_GetFileSizeString ] ", "-1", [size] {
        if (size < kUnit) {
            return std::to_string(rounded(size)) + "B";
        }
        SizeUnit unit = kUnits.front();
        for (const SizeUnit& larger : kUnits) {
            if (size >= larger.factor) {
                unit = larger;
            }
        }
        return withDecimals(size / unit.factor) + std::string(unit.name);
    });
}

}  // namespace orv
