#pragma once

#include <deque>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "platform/run_time_error.h"
#include "platform/suite/message_service.h"

namespace orv {

/// Shows nothing; keeps what was shown and answers from a queue, with 0 ("go on") when it is empty.
class RecordedMessages : public MessageService {
public:
    struct Shown {
        std::string id;
        Values args;

        friend bool operator==(const Shown&, const Shown&) = default;
    };

    std::vector<Shown> shown;
    std::deque<std::int32_t> answers;
    /// No message can be shown: the result is false, the answer 1, and this is why.
    std::optional<FailureRecord> refusal;
    /// The service itself breaks.
    std::optional<Failure> failure;
    /// While a message is on the screen.
    std::function<void()> onShow;

    FailureRecord ErrorInfo() const override { return refusal.value_or(FailureRecord{}); }
    std::int32_t LastAnswer() const override { return lastAnswer_; }
    bool ShowMessage(const std::string& id, const Values& args) override {
        if (failure) {
            throw RunTimeError(*failure);
        }
        if (refusal) {
            lastAnswer_ = 1;
            return false;
        }
        shown.push_back({id, args});
        if (onShow) {
            onShow();
        }
        lastAnswer_ = 0;
        if (!answers.empty()) {
            lastAnswer_ = answers.front();
            answers.pop_front();
        }
        return true;
    }

private:
    std::int32_t lastAnswer_ = 0;
};

}  // namespace orv
