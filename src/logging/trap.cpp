#include "logging/trap.h"

#include <new>
#include <stdexcept>
#include <string>

#include "logging/error_pair.h"

namespace orv {

std::optional<RunTimeError> caught(const std::function<void()>& body) {
    try {
        body();
        return std::nullopt;
    } catch (const RunTimeError& failure) {
        return failure;
    } catch (const std::out_of_range&) {
        return RunTimeError(Failure::SubscriptOutOfRange);
    } catch (const std::bad_alloc&) {
        return RunTimeError(Failure::OutOfMemory);
    } catch (const std::exception&) {
        return RunTimeError(Failure::Internal);
    }
}

bool trapped(std::string_view label, const std::function<bool()>& body) {
    bool result = false;
    if (const auto failure = caught([&] { result = body(); })) {
        return fail(std::string(label) + failure->description(), std::to_string(failure->number()));
    }
    return result;
}

}  // namespace orv
