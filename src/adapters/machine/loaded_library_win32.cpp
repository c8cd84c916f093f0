#include <cstring>

#include "adapters/machine/loaded_library.h"

// After the other headers, because its macros rename functions.
#include <windows.h>

namespace orv {

/// Only from the program's own folder and those of the system, never from the current folder.
LoadedLibrary::LoadedLibrary(const std::string& name, const std::string&)
    : file_("lib" + name + ".dll"),
      library_(::LoadLibraryExA(file_.c_str(), nullptr,
                                LOAD_LIBRARY_SEARCH_APPLICATION_DIR | LOAD_LIBRARY_SEARCH_SYSTEM32)) {}

void* LoadedLibrary::find(const char* function) const {
    if (library_ == nullptr) {
        return nullptr;
    }
    const FARPROC found = ::GetProcAddress(static_cast<HMODULE>(library_), function);
    void* address = nullptr;
    static_assert(sizeof address == sizeof found);
    std::memcpy(&address, &found, sizeof found);
    return address;
}

}  // namespace orv
