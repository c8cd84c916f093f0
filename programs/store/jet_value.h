#pragma once

#include <string>

#include "jet_file.h"
#include "office_schema.h"
#include "platform/machine/code_page.h"

namespace orv {

/// A value to be stored in a column.
struct ConvertedValue {
    Value value;
    std::string refused;  // the reason for rejecting the value and its row
    std::string noted;    // a remark for the user about an accepted value
};

struct JetText {
    std::string text;
    bool isWhole;  // no character was replaced
};

/// Converts values of a Jet file of one version to those of the store's columns.
class JetValues {
public:
    JetValues(int version, const CodePage& codePage) : version_(version), codePage_(codePage) {}

    ConvertedValue convert(const JetCell& cell, JetType type, const OfficeColumn& column) const;

private:
    JetText decodeText(const std::string& bytes) const;
    ConvertedValue text(const JetCell& cell, JetType type, const OfficeColumn& column) const;
    ConvertedValue number(const JetCell& cell, JetType type) const;

    int version_;
    const CodePage& codePage_;
};

}  // namespace orv
