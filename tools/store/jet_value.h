#pragma once

#include <string>

#include "jet_file.h"
#include "office_schema.h"
#include "platform/machine/code_page.h"

namespace orv {

/// A value on its way into a column of the store.
struct TakenValue {
    Value value;
    std::string refused;  // why it can't be taken; the row stays out
    std::string noted;    // what the person should know of a value that was taken
};

struct JetText {
    std::string text;
    bool isWhole;  // no character was replaced
};

/// Brings values of a Jet file of one version into what the store's columns hold.
class JetValues {
public:
    JetValues(int version, const CodePage& codePage) : version_(version), codePage_(codePage) {}

    TakenValue take(const JetCell& cell, JetType type, const OfficeColumn& column) const;

private:
    JetText textOf(const std::string& bytes) const;
    TakenValue text(const JetCell& cell, JetType type, const OfficeColumn& column) const;
    TakenValue number(const JetCell& cell, JetType type) const;

    int version_;
    const CodePage& codePage_;
};

}  // namespace orv
