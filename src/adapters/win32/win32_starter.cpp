#include "adapters/win32/win32_starter.h"

#include "adapters/machine/found_program.h"
#include "adapters/win32/wide_text.h"
#include "platform/run_time_error.h"

namespace orv {
namespace {

constexpr std::size_t kLongestCommandLine = 32767;

}  // namespace

Win32Handle Win32Starter::startProcess(const std::string& commandLine) const {
    const auto found = findProgram(commandLine, [this](const std::string& path) { return fileAt(path); });
    if (!found) {
        throw RunTimeError(Failure::FileNotFound);
    }
    std::wstring line = toWide("\"" + found->program + "\"" + std::string(found->arguments));
    if (line.size() >= kLongestCommandLine) {
        throw RunTimeError(Failure::FileNotFound);
    }
    STARTUPINFOW start{};
    start.cb = sizeof start;
    start.dwFlags = STARTF_USESHOWWINDOW;
    start.wShowWindow = SW_SHOWNORMAL;
    PROCESS_INFORMATION started{};
    if (::CreateProcessW(toWide(found->program).c_str(), line.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr,
                         &start, &started) == 0) {
        throw RunTimeError(Failure::FileNotFound);
    }
    const Win32Handle thread(started.hThread);
    // The new program takes the keyboard, as the operator expects of the window that opens.
    ::AllowSetForegroundWindow(started.dwProcessId);
    return Win32Handle(started.hProcess);
}

std::optional<std::string> Win32Starter::fileAt(const std::string& path) const {
    try {
        const std::string native = paths_.toNative(path);
        const DWORD attributes = ::GetFileAttributesW(longPath(native).c_str());
        const bool isFile = attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) == 0;
        return isFile ? std::optional(native) : std::nullopt;
    } catch (const RunTimeError&) {
        return std::nullopt;  // not a possible name
    }
}

}  // namespace orv
