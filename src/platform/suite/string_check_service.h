#pragma once

#include <string>

#include "platform/suite/failure_record.h"

namespace orv {

/// What may stand in a text of the store and of the wire.
class StringCheckService {
public:
    StringCheckService() = default;
    StringCheckService(const StringCheckService&) = delete;
    StringCheckService& operator=(const StringCheckService&) = delete;
    virtual ~StringCheckService() = default;

    /// The last rejection: a Japanese text for the operator and a code.
    virtual FailureRecord ErrorInfo() const = 0;
    virtual void ClearError() = 0;
    /// `output` is `input` cleaned; cleaning twice changes nothing more.
    virtual void Normalize(const std::string& input, std::string& output) = 0;
    /// False for a character that the system code page can't hold.
    virtual void CheckTextFirst(const std::string& text, bool& passes) = 0;
    /// False for a character that would break the store or the wire.
    virtual void CheckTextSecond(const std::string& text, bool& passes) = 0;
    /// True for a Japanese telephone number in half-width digits and hyphens. An empty text is rejected with an empty
    /// code.
    virtual void CheckTelNumber(const std::string& text, bool& passes) = 0;
};

}  // namespace orv
