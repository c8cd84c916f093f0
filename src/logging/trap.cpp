#include "logging/trap.h"

#include <new>
#include <stdexcept>
#include <utility>

#include "core/record/globals.h"

namespace orv {

bool fail(std::string text, std::string code) {
    setPair({std::move(text), std::move(code)});
    return false;
}

bool failFrom(const FailureRecord& record) { return fail(record.text, record.code); }

void setPair(FailureRecord record) {
    gErrMsg = std::move(record.text);
    gErrCode = std::move(record.code);
}

void clearPair() { setPair({}); }

PairKeeper::PairKeeper() : pair_{gErrMsg, gErrCode} {}
PairKeeper::~PairKeeper() { setPair(std::move(pair_)); }

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
