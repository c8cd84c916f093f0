#include "transmission/file_names.h"

#include "logging/trap.h"
#include "platform/machine/file_system.h"
#include "platform/run_time_error.h"
#include "platform/services.h"
#include "platform/utf8.h"
#include "validation/text/blanks.h"

namespace orv {

bool PF_FileCanOpen(const std::string& file) {
    bool canOpen = false;
    static_cast<void>(caught([&] {
        std::string name = PF_StripQuotes(file);
        if (name.ends_with('\\')) {
            name.pop_back();
        }
        canOpen = services().fileSystem->exists(name) && services().fileSystem->canOpen(name);
    }));  // a file that cannot be checked is not sent
    return canOpen;
}

std::string PF_StripQuotes(const std::string& text) {
    const std::string name = trimmed(text);
    if (toCharacters(name).size() < 2) {
        throw RunTimeError(Failure::InvalidCall);
    }
    const bool quoted = name.starts_with('"') && name.ends_with('"');
    return quoted ? name.substr(1, name.size() - 2) : name;
}

std::string PF_BaseName(const std::string& path) {
    const std::size_t split = path.find_last_of("\\:");
    return split == std::string::npos ? path : path.substr(split + 1);
}

}  // namespace orv
