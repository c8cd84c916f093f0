#include "adapters/machine/loaded_library.h"

#include <dlfcn.h>

namespace orv {

LoadedLibrary::LoadedLibrary(const std::string& name, const std::string& version)
    : file_("lib" + name + ".so." + version), library_(::dlopen(file_.c_str(), RTLD_NOW | RTLD_LOCAL)) {}

void* LoadedLibrary::find(const char* function) const {
    return library_ == nullptr ? nullptr : ::dlsym(library_, function);
}

}  // namespace orv
