#pragma once

#include <string>

#include "platform/machine/code_page.h"
#include "platform/suite/string_check_service.h"

namespace orv {

/// The text rules of the suite, for what the store and the server can take.
///
/// `Normalize` touches nothing else than: control and invisible characters, which go (line breaks and tabulators too);
/// the apostrophe, which becomes ’ (U+2019); characters that the code page lacks and look like one that it has;
/// combining voice marks, which join their kana. Bytes that are no UTF-8 become U+FFFD, which the first test refuses.
///
/// A rejection stays in `ErrorInfo` until the next one or `ClearError`.
class StringCheck : public StringCheckService {
public:
    explicit StringCheck(const CodePage& codePage) : codePage_(codePage) {}

    FailureRecord ErrorInfo() const override { return rejection_; }
    void ClearError() override { rejection_ = {}; }
    void Normalize(const std::string& input, std::string& output) override;
    /// Code STRCHK01.
    void CheckTextFirst(const std::string& text, bool& passes) override;
    /// Code STRCHK02.
    void CheckTextSecond(const std::string& text, bool& passes) override;
    /// Codes TELCHK01 (characters), 02 (does not begin like a number), 03 (digits), 04 (hyphens).
    void CheckTelNumber(const std::string& text, bool& passes) override;

private:
    const CodePage& codePage_;
    FailureRecord rejection_;
};

}  // namespace orv
