#include "adapters/machine/path_names.h"

#include <algorithm>

namespace orv {

std::vector<std::string_view> splitPath(std::string_view path) {
    std::vector<std::string_view> names;
    while (!path.empty()) {
        const auto end = std::min(path.find_first_of("\\/"), path.size());
        const auto name = path.substr(0, end);
        path.remove_prefix(std::min(end + 1, path.size()));
        if (name == "..") {
            if (!names.empty()) {
                names.pop_back();
            }
        } else if (!name.empty() && name != ".") {
            names.push_back(name);
        }
    }
    return names;
}

}  // namespace orv
