#pragma once

#include <string>

#include "platform/scope.h"
#include "platform/suite/failure_record.h"

namespace orv {

class HelpService : public Interface {
public:
    virtual FailureRecord ErrorInfo() const = 0;
    /// Shows the explanation of the control. False if nothing could be shown.
    virtual bool ShowHelp(const std::string& controlName, const std::string& group) = 0;
};

}  // namespace orv
