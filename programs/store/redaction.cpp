#include "redaction.h"

#include <algorithm>
#include <regex>
#include <sstream>

#include "known_settings.h"
#include "platform/ascii.h"
#include "table_copy.h"

namespace orv {
namespace {

const std::regex kRecord(R"((\d{4}/\d\d/\d\d \d\d:\d\d:\d\d),([A-Z0-9:]{1,12}),(\[ [A-Za-z0-9_]{1,60} \])?)");
const std::regex kCompany("[0-9]{9}|-{9}");
const std::regex kComputer("[A-Za-z0-9.-]{1,63}");
const std::regex kTime(R"(\d{4}/\d\d/\d\d \d\d:\d\d:\d\d)");
const std::regex kEnginesText(R"(.*(\[[A-Z0-9]{1,12}\]))");

std::string kept(const std::string& text, const std::regex& form) {
    return std::regex_match(text, form) ? text : kRemoved;
}

bool isKnown(const std::string& name) { return kKnownSettings.find("\n" + name + "\n") != std::string_view::npos; }

/// A value that has both a user and a query is removed, because one can contain the mark of the other.
std::string withoutCredentials(const std::string& value) {
    const std::size_t user = value.rfind('@');
    const std::size_t query = value.find('?');
    if (user != std::string::npos && query != std::string::npos) {
        return kRemoved;
    }
    const std::string withoutUser = user == std::string::npos ? value : kRemoved + value.substr(user);
    return query == std::string::npos ? withoutUser : value.substr(0, query + 1) + kRemoved;
}

std::string redactedLine(const std::string& line) {
    if (line.starts_with('[')) {
        return isKnown(line) ? line : std::string("[") + kRemoved + "]";
    }
    const std::size_t equals = line.find('=');
    const std::string key = line.substr(0, equals);
    return equals == std::string::npos || !isKnown(key) ? kRemoved
                                                        : key + "=" + withoutCredentials(line.substr(equals + 1));
}

/// Calls `act` with each line, without the blanks around it.
template <typename Act>
void forEachLine(const std::string& text, Act act) {
    std::istringstream lines(text);
    for (std::string line; std::getline(lines, line);) {
        act(std::string(trimmed(line, kLineBlanks)));
    }
}

bool isOwnWord(const std::string& where) {
    return where == "damage" || std::ranges::find(kOfficeTables, where) != kOfficeTables.end();
}

std::string redactedPlace(const std::string& where, const std::string& office) {
    return where.starts_with(office) || isOwnWord(where) ? where : kept(where, kCompany);
}

std::string redactedFinding(const std::string& what) {
    std::smatch parts;
    return std::regex_match(what, parts, kEnginesText) ? parts[1].str() : what;
}

}  // namespace

std::string redactedSettings(const std::string& text) {
    std::string result;
    forEachLine(text, [&](const std::string& line) {
        if (!line.empty() && !line.starts_with(';')) {
            result += redactedLine(line) + "\n";
        }
    });
    return result;
}

std::string redactedLog(const std::string& text) {
    std::string result;
    forEachLine(text, [&](const std::string& line) {
        std::smatch parts;
        if (std::regex_search(line, parts, kRecord, std::regex_constants::match_continuous)) {
            result += parts.str() + "\n";
        }
    });
    return result;
}

nlohmann::ordered_json redactedCheck(const nlohmann::ordered_json& facts, const std::string& office) {
    nlohmann::ordered_json result = facts;
    for (auto& finding : result["findings"]) {
        finding["where"] = redactedPlace(finding["where"], office);
        finding["what"] = redactedFinding(finding["what"]);
    }
    for (auto& lock : result["locks"]) {
        lock["company"] = kept(lock["company"], kCompany);
        lock["computer"] = kept(lock["computer"], kComputer);
        lock["since"] = kept(lock["since"], kTime);
    }
    return result;
}

}  // namespace orv
