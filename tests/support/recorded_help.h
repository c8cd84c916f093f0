#pragma once

#include <optional>
#include <string>
#include <vector>

#include "platform/run_time_error.h"
#include "platform/suite/help_service.h"

namespace orv {

/// Shows nothing; keeps what it was asked for, as "group name".
class RecordedHelp : public HelpService {
public:
    std::vector<std::string> asked;
    /// Nothing can be shown, and this is why.
    std::optional<FailureRecord> refusal;

    FailureRecord ErrorInfo() const override { return refusal.value_or(FailureRecord{}); }
    bool ShowHelp(const std::string& controlName, const std::string& group) override {
        asked.push_back(group + " " + controlName);
        return !refusal;
    }
};

}  // namespace orv
