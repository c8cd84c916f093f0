#pragma once

#include <string>

#include "adapters/store/store_failure.h"

namespace orv {

/// Returns the code of the call's failure, or "". `words` becomes its text.
template <typename Call>
std::string catchCode(Call call, std::string* words = nullptr) {
    try {
        call();
        return "";
    } catch (const StoreFailure& failure) {
        if (words != nullptr) {
            *words = failure.description();
        }
        return failure.code();
    }
}

}  // namespace orv
