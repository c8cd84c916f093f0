#pragma once

#include <string>

#include "platform/suite/failure_record.h"

namespace orv {

/// Sends one company to the suite's server. An instance lives for one save.
class CompanySendService {
public:
    CompanySendService() = default;
    CompanySendService(const CompanySendService&) = delete;
    CompanySendService& operator=(const CompanySendService&) = delete;
    virtual ~CompanySendService() = default;

    virtual FailureRecord SendError() const = 0;
    /// Looks that the settings are there and the service answers.
    virtual void SendPrepare(bool& ok) = 0;
    /// `id`: the number that the server gave.
    virtual void SendCompany(const std::string& userId, std::string& id, bool& ok) = 0;
};

}  // namespace orv
