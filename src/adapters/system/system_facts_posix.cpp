#include <unistd.h>

#include <array>
#include <cstdlib>
#include <ctime>

#include "adapters/system/system_facts.h"
#include "platform/ascii.h"

namespace orv {
namespace {

std::string hostName() {
    std::array<char, 256> name{};  // one more than the longest, so that it always ends
    return ::gethostname(name.data(), name.size() - 1) == 0 ? name.data() : "";
}

}  // namespace

std::string SystemFacts::GetComputerName() const {
    const char* given = std::getenv("ORV_COMPUTER_NAME");
    const std::string name(trimmed(given != nullptr ? given : "", kBlanksAndTabs));
    return upperAscii(name.empty() ? hostName() : name);
}

std::string SystemFacts::GetWindowsDirectory() const { return "C:\\WINDOWS"; }

DateTime SystemClock::now() const {
    const std::time_t seconds = std::time(nullptr);
    std::tm local{};
    ::localtime_r(&seconds, &local);
    return {local.tm_year + 1900, local.tm_mon + 1, local.tm_mday, local.tm_hour, local.tm_min, local.tm_sec};
}

}  // namespace orv
