#include "company_service.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <nlohmann/json.hpp>
#include <stdexcept>

#include "durable_file.h"
#include "platform/ascii.h"

namespace orv {
namespace {

using Document = nlohmann::ordered_json;

constexpr auto kTables = std::to_array<const char*>({"TBL_CUSTOMER_INFO", "TBL_CUSTOMER_ADD", "TBL_CUSTOMER_DATE"});
constexpr std::string_view kMarker = "---------";
constexpr std::size_t kDigits = 9;
constexpr int kBeforeFirst = 5000;

bool isNumber(std::string_view id) { return id.size() == kDigits && std::ranges::all_of(id, isAsciiDigit); }

std::string nineDigits(int number) {
    std::string digits = std::to_string(number);
    if (digits.size() > kDigits) {
        throw std::runtime_error("all numbers are given");
    }
    return std::string(kDigits - digits.size(), '0') + digits;
}

/// Returns the common USER_ID of all three rows, or "" if the document is not a company.
std::string readUserId(const Document& document) {
    std::string common;
    for (const char* table : kTables) {
        if (!document.is_object() || !document.contains(table) || !document[table].is_object()) {
            return "";
        }
        const auto id = document[table].value("USER_ID", Document());
        if (!id.is_string() || (!common.empty() && id.get<std::string>() != common)) {
            return "";
        }
        common = id.get<std::string>();
    }
    return common == kMarker || isNumber(common) ? common : "";
}

int readNumber(const std::filesystem::path& file) {
    if (!std::filesystem::exists(file)) {
        return kBeforeFirst;
    }
    std::string text = readWhole(file);
    text.erase(std::ranges::find(text, '\n'), text.end());
    int number = 0;
    if (!isNumber(text) || std::from_chars(text.data(), text.data() + text.size(), number).ec != std::errc{}) {
        throw std::runtime_error(file.string() + " holds no number of nine digits");
    }
    return number;
}

}  // namespace

CompanyService::CompanyService(const std::filesystem::path& folder)
    : companies_(folder / "companies"), lastNumber_(folder / "last_number") {
    std::filesystem::create_directories(companies_);
    readNumber(lastNumber_);
}

std::string CompanyService::assignNumber() {
    int number = readNumber(lastNumber_) + 1;
    while (std::filesystem::exists(companies_ / (nineDigits(number) + ".json"))) {
        ++number;
    }
    writeDurably(lastNumber_, nineDigits(number) + "\n");
    return nineDigits(number);
}

ServiceAnswer CompanyService::registerCompany(const std::string& document, std::optional<std::size_t> idLength) {
    auto company = Document::parse(document, nullptr, false);
    std::string id = readUserId(company);
    if (id.empty()) {
        return {400, "not a company\n"};
    }
    const std::lock_guard lock(guard_);
    if (id == kMarker) {
        id = assignNumber();
        for (const char* table : kTables) {
            company[table]["USER_ID"] = id;
        }
    }
    writeDurably(companies_ / (id + ".json"), company.dump(2) + "\n");
    id.resize(idLength.value_or(id.size()), '9');
    return {200, Document{{"id", id}}.dump()};
}

}  // namespace orv
