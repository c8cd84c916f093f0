#include "adapters/postgres/postgres_library.h"

#include "adapters/machine/loaded_library.h"
#include "platform/run_time_error.h"

namespace orv {

PostgresLibrary::Function PostgresLibrary::function(const char* name) {
    static const LoadedLibrary library("pq", "5");
    const Function found{library.find(name)};
    if (found.address == nullptr) {
        throw RunTimeError(Failure::Internal, "データベースのライブラリ（" + library.file() + "）を使えません。");
    }
    return found;
}

const PostgresLibrary& pq() {
    static const PostgresLibrary library;
    return library;
}

}  // namespace orv
