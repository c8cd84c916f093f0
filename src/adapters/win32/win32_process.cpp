#include <cstdlib>
#include <memory>

#include "adapters/machine/own_process.h"
#include "adapters/win32/wide_text.h"
#include "adapters/win32/windows_api.h"

// After windows.h.
#include <shellapi.h>

namespace orv {

/// Without the system's report of a crash there is no copy of the memory either.
void keepMemoryPrivate() { ::SetErrorMode(SEM_FAILCRITICALERRORS | SEM_NOGPFAULTERRORBOX); }

void surviveBrokenConnections() {}

/// The console keeps the code page, so that the next program would have it.
void writeUtf8ToConsole() {
    static const UINT before = ::GetConsoleOutputCP();
    ::SetConsoleOutputCP(CP_UTF8);
    std::atexit([] { ::SetConsoleOutputCP(before); });
}

/// The arguments of main() are in the code page of the machine, which does not have every character.
std::vector<std::string> programArguments(int, char*[]) {
    int count = 0;
    const std::unique_ptr<wchar_t*, decltype(&::LocalFree)> all(::CommandLineToArgvW(::GetCommandLineW(), &count),
                                                                &::LocalFree);
    std::vector<std::string> arguments;
    for (int i = 1; all && i < count; ++i) {
        arguments.push_back(fromWide(all.get()[i]));
    }
    return arguments;
}

}  // namespace orv
