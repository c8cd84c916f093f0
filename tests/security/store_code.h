#pragma once

#include <string>

#include "adapters/store/store_failure.h"

namespace orv {

/// The code of the failure of the call; empty without one. `words` becomes its text.
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
