#pragma once

#include <deque>
#include <functional>
#include <optional>

#include "platform/run_time_error.h"
#include "platform/suite/message_service.h"

namespace orv {

/// Shows nothing, records the messages and answers from a queue, or with 0 ("go on") if it is empty.
class RecordedMessages : public MessageService {
public:
    struct Shown {
        std::string id;
        Values args;

        friend bool operator==(const Shown&, const Shown&) = default;
    };

    std::vector<Shown> shown;
    std::deque<std::int32_t> answers;
    /// If set, no message can be shown: the result is false, the answer 1, and this is the failure.
    std::optional<FailureRecord> refusal;
    std::optional<Failure> failure;
    std::function<void()> onShow;

    FailureRecord ErrorInfo() const override { return refusal.value_or(FailureRecord{}); }
    std::int32_t LastAnswer() const override { return lastAnswer_; }
    bool ShowMessage(const std::string& id, const Values& args) override {
        if (failure) throw RunTimeError(*failure);
        if (refusal) {
            lastAnswer_ = 1;
            return false;
        }
        shown.push_back({id, args});
        if (onShow) onShow();
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
