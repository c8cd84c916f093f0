#include "adapters/pictures/whole_file.h"

#include "adapters/posix/native_file.h"

namespace orv {

void writeWholeFile(const FileSystem& files, const std::string& path, const std::vector<std::uint8_t>& bytes) {
    FileBeside beside(files.nativePath(path));
    beside.file().writeAll({reinterpret_cast<const char*>(bytes.data()), bytes.size()});
    beside.placeUnsynced();
}

}  // namespace orv
