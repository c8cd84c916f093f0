#pragma once

#include <string>
#include <string_view>

#include "platform/machine/code_page.h"
#include "platform/suite/string_check_service.h"

namespace orv {

enum class TelFault { None, Empty, Characters, Leading, Digits, Hyphens };

/// Returns the first fault of a Japanese telephone or fax number in half-width digits. Hyphens are optional, but must
/// be at the places of its kind of number.
TelFault findTelFault(std::string_view text);

/// The suite's rules for texts that the store and the server accept.
///
/// `Normalize` changes only four things. It removes control and invisible characters, including line breaks and tabs.
/// The apostrophe becomes ’ (U+2019). Characters missing in the code page become similar ones that it has. Combining
/// voice marks join their kana. Bytes that are not UTF-8 become U+FFFD, which the first test rejects.
///
/// `ErrorInfo` keeps a rejection until the next one or `ClearError`.
class StringCheck : public StringCheckService {
public:
    explicit StringCheck(const CodePage& codePage) : codePage_(codePage) {}

    FailureRecord ErrorInfo() const override { return rejection_; }
    void ClearError() override { rejection_ = {}; }
    void Normalize(const std::string& input, std::string& output) override;
    /// Sets code STRCHK01.
    void CheckTextFirst(const std::string& text, bool& passes) override;
    /// Sets code STRCHK02.
    void CheckTextSecond(const std::string& text, bool& passes) override;
    /// Sets codes TELCHK01 (characters), 02 (wrong first digits), 03 (number of digits), 04 (hyphens).
    void CheckTelNumber(const std::string& text, bool& passes) override;

private:
    const CodePage& codePage_;
    FailureRecord rejection_;
};

}  // namespace orv
