#pragma once

#include <cstdint>
#include <string>

#include "platform/suite/failure_record.h"
#include "platform/value.h"

namespace orv {

/// Shows the suite's messages by id. Modal: returns when the operator has closed the dialog.
class MessageService {
public:
    MessageService() = default;
    MessageService(const MessageService&) = delete;
    MessageService& operator=(const MessageService&) = delete;
    virtual ~MessageService() = default;

    virtual FailureRecord ErrorInfo() const = 0;
    /// The answer to the last message. 1: the present state stays; anything else: the action goes on.
    virtual std::int32_t LastAnswer() const = 0;
    /// False only when no window could be shown; `LastAnswer` is then 1.
    virtual bool ShowMessage(const std::string& id, const Values& args) = 0;
};

}  // namespace orv
