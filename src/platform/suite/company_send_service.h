#pragma once

#include <string>

#include "platform/scope.h"
#include "platform/suite/failure_record.h"

namespace orv {

/// Sends one company to the suite's server. Create one object for each save.
class CompanySendService : public Interface {
public:
    virtual FailureRecord SendError() const = 0;
    /// Checks that the settings exist and that the service answers.
    virtual void SendPrepare(bool& ok) = 0;
    /// `id` receives the number that the server assigned.
    virtual void SendCompany(const std::string& userId, std::string& id, bool& ok) = 0;
};

}  // namespace orv
