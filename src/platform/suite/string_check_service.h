#pragma once

#include <string>

#include "platform/scope.h"
#include "platform/suite/failure_record.h"

namespace orv {

/// Defines which texts the store and the protocol accept.
class StringCheckService : public Interface {
public:
    /// Returns the last rejection: a Japanese text for the operator and a code.
    virtual FailureRecord ErrorInfo() const = 0;
    virtual void ClearError() = 0;
    /// `output` receives the cleaned `input`. Cleaning twice changes nothing more.
    virtual void Normalize(const std::string& input, std::string& output) = 0;
    /// `passes` is false for a character that the system code page does not contain.
    virtual void CheckTextFirst(const std::string& text, bool& passes) = 0;
    /// `passes` is false for a character that would break the store or the protocol.
    virtual void CheckTextSecond(const std::string& text, bool& passes) = 0;
    /// `passes` is true for a Japanese telephone number in half-width digits and hyphens. An empty text is rejected
    /// with an empty code.
    virtual void CheckTelNumber(const std::string& text, bool& passes) = 0;
};

}  // namespace orv
