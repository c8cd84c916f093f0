#include "durable_file.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <fstream>
#include <iterator>
#include <system_error>

#include "platform/scope.h"

namespace orv {
namespace {

[[noreturn]] void raise(const std::filesystem::path& file) {
    throw std::system_error(errno, std::generic_category(), file.string());
}

class OpenFile : NonCopyable {
public:
    OpenFile(const std::filesystem::path& path, int flags) : path_(path), number_(::open(path.c_str(), flags, 0600)) {
        if (number_ < 0) {
            raise(path_);
        }
    }
    ~OpenFile() { ::close(number_); }

    void write(std::string_view bytes) const {
        while (!bytes.empty()) {
            const ssize_t written = ::write(number_, bytes.data(), bytes.size());
            if (written < 0) {
                raise(path_);
            }
            bytes.remove_prefix(static_cast<std::size_t>(written));
        }
    }
    void sync() const {
        if (::fsync(number_) != 0) {
            raise(path_);
        }
    }

private:
    std::filesystem::path path_;
    int number_;
};

}  // namespace

void writeDurably(const std::filesystem::path& file, std::string_view bytes) {
    const std::filesystem::path replacement = file.string() + ".new";
    {
        const OpenFile fresh(replacement, O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC);
        fresh.write(bytes);
        fresh.sync();
    }
    std::filesystem::rename(replacement, file);
    OpenFile(file.parent_path(), O_RDONLY | O_DIRECTORY | O_CLOEXEC).sync();
}

std::string readWhole(const std::filesystem::path& file) {
    std::ifstream stream(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), {}};
}

}  // namespace orv
