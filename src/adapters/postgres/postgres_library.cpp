#include "adapters/postgres/postgres_library.h"

#include <dlfcn.h>

#include <string>

#include "platform/run_time_error.h"

namespace orv {
namespace {

constexpr const char* kName = "libpq.so.5";

}  // namespace

PostgresLibrary::Function PostgresLibrary::function(const char* name) {
    static void* const library = ::dlopen(kName, RTLD_NOW | RTLD_LOCAL);
    const Function found{library == nullptr ? nullptr : ::dlsym(library, name)};
    if (found.address == nullptr) {
        throw RunTimeError(Failure::Internal, std::string("データベースのライブラリ（") + kName + "）を使えません。");
    }
    return found;
}

const PostgresLibrary& pq() {
    static const PostgresLibrary library;
    return library;
}

}  // namespace orv
