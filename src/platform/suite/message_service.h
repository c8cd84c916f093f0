#pragma once

#include <cstdint>
#include <string>

#include "platform/scope.h"
#include "platform/suite/failure_record.h"
#include "platform/value.h"

namespace orv {

/// Shows the suite's messages by id. Returns after the operator has closed the dialog.
class MessageService : public Interface {
public:
    virtual FailureRecord ErrorInfo() const = 0;
    /// Returns the answer to the last message. 1 keeps the present state; any other value continues the action.
    virtual std::int32_t LastAnswer() const = 0;
    /// False only if no window could be shown; `LastAnswer` is then 1.
    virtual bool ShowMessage(const std::string& id, const Values& args) = 0;
};

}  // namespace orv
