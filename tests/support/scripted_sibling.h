#pragma once

#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "platform/machine/sibling_desk.h"
#include "platform/run_time_error.h"

namespace orv {

/// Starts nothing: the test speaks for the program. With `failure` set, a start fails with it.
class ScriptedSibling : public SiblingDesk {
public:
    std::vector<std::string> commandLines;
    std::optional<Failure> failure;
    int dismissals = 0;

    void start(const std::string& commandLine, SiblingCalls calls) override {
        if (failure) {
            throw RunTimeError(*failure);
        }
        commandLines.push_back(commandLine);
        calls_ = std::move(calls);
    }
    void dismiss() override {
        ++dismissals;
        calls_.reset();
    }

    bool listenedTo() const { return calls_.has_value(); }
    // A call works on its own copy, as the program may be dismissed in it.
    bool setText(std::uint32_t handle, const std::string& text) const {
        const auto calls = calls_;
        return calls && calls->setText(handle, text);
    }
    bool pressKey(std::uint32_t handle, int key) const {
        const auto calls = calls_;
        return calls && calls->pressKey(handle, key);
    }
    void end() {
        if (const auto calls = std::exchange(calls_, std::nullopt)) {
            calls->gone();
        }
    }

private:
    std::optional<SiblingCalls> calls_;
};

}  // namespace orv
