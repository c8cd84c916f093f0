#include <array>

#include "adapters/system/system_facts.h"
#include "adapters/win32/wide_text.h"
#include "adapters/win32/windows_api.h"
#include "platform/ascii.h"

namespace orv {
namespace {

std::string nameOfComputer() {
    std::array<wchar_t, MAX_COMPUTERNAME_LENGTH + 1> name{};
    DWORD length = static_cast<DWORD>(name.size());
    return ::GetComputerNameW(name.data(), &length) != 0 ? fromWide({name.data(), length}) : "";
}

}  // namespace

std::string SystemFacts::GetComputerName() const {
    const std::string given = environmentValue(L"ORV_COMPUTER_NAME");
    const std::string name(trimmed(given, kBlanksAndTabs));
    return upperAscii(name.empty() ? nameOfComputer() : name);
}

std::string SystemFacts::GetWindowsDirectory() const {
    std::array<wchar_t, MAX_PATH> folder{};
    const UINT length = ::GetWindowsDirectoryW(folder.data(), static_cast<UINT>(folder.size()));
    return length < folder.size() ? fromWide({folder.data(), length}) : "";
}

DateTime SystemClock::now() const {
    SYSTEMTIME local{};
    ::GetLocalTime(&local);
    return {local.wYear, local.wMonth, local.wDay, local.wHour, local.wMinute, local.wSecond};
}

}  // namespace orv
