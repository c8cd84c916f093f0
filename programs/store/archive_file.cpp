#include "archive_file.h"

#include <array>
#include <cstdio>
#include <cstring>
#include <ctime>
#include <numeric>

#include "keeper.h"
#include "platform/file_path.h"

namespace orv {
namespace {

constexpr std::size_t kBlock = 512;
constexpr std::size_t kOutput = 1 << 16;
constexpr int kGzip = 16;  // in addition to the size of the window

/// The header of a file, in the form of POSIX (ustar). Numbers are octal digits with a NUL at the end.
struct Header {
    std::array<char, 100> name{};
    std::array<char, 8> mode{};
    std::array<char, 8> owner{};
    std::array<char, 8> group{};
    std::array<char, 12> size{};
    std::array<char, 12> time{};
    std::array<char, 8> sum{' ', ' ', ' ', ' ', ' ', ' ', ' ', ' '};  // counted as blanks
    char type = '0';
    std::array<char, 100> link{};
    std::array<char, 8> magic{'u', 's', 't', 'a', 'r', '\0', '0', '0'};
    std::array<char, 247> rest{};
};
static_assert(sizeof(Header) == kBlock);

template <std::size_t Size>
void setNumber(std::array<char, Size>& field, std::size_t number) {
    std::snprintf(field.data(), Size, "%0*llo", static_cast<int>(Size) - 1, static_cast<unsigned long long>(number));
}

Header makeHeader(const std::string& name, std::size_t size) {
    constexpr std::size_t kForOwner = 0600;
    Header header;
    if (name.size() >= header.name.size()) {
        throw KeeperFailure("the archive cannot be written: " + name + " is too long");
    }
    std::memcpy(header.name.data(), name.data(), name.size());
    setNumber(header.mode, kForOwner);
    setNumber(header.owner, 0);
    setNumber(header.group, 0);
    setNumber(header.size, size);
    setNumber(header.time, static_cast<std::size_t>(std::time(nullptr)));
    const auto* const bytes = reinterpret_cast<const unsigned char*>(&header);
    setNumber(header.sum, std::accumulate(bytes, bytes + kBlock, std::size_t{0}));
    return header;
}

}  // namespace

ArchiveFile::ArchiveFile(const std::string& path) : file_(filePath(path), std::ios::binary) {
    if (::deflateInit2(&packer_, Z_DEFAULT_COMPRESSION, Z_DEFLATED, MAX_WBITS + kGzip, MAX_MEM_LEVEL,
                       Z_DEFAULT_STRATEGY) != Z_OK) {
        throw KeeperFailure("the archive cannot be written: out of memory");
    }
}

ArchiveFile::~ArchiveFile() { ::deflateEnd(&packer_); }

void ArchiveFile::add(const std::string& name, const std::string& bytes) {
    const Header header = makeHeader(name, bytes.size());
    write({reinterpret_cast<const char*>(&header), sizeof header}, Z_NO_FLUSH);
    write(bytes, Z_NO_FLUSH);
    fill((kBlock - bytes.size() % kBlock) % kBlock);
}

/// Two empty blocks end the archive.
void ArchiveFile::finish() {
    fill(2 * kBlock);
    write({}, Z_FINISH);
    file_.close();
    if (!file_) {
        throw KeeperFailure("the archive cannot be written: the disk is full or not writable");
    }
}

void ArchiveFile::fill(std::size_t bytes) { write(std::string(bytes, '\0'), Z_NO_FLUSH); }

void ArchiveFile::write(std::string_view bytes, int flush) {
    std::array<char, kOutput> packed;
    packer_.next_in = reinterpret_cast<unsigned char*>(const_cast<char*>(bytes.data()));
    packer_.avail_in = static_cast<unsigned>(bytes.size());
    do {
        packer_.next_out = reinterpret_cast<unsigned char*>(packed.data());
        packer_.avail_out = kOutput;
        ::deflate(&packer_, flush);
        file_.write(packed.data(), static_cast<std::streamsize>(kOutput - packer_.avail_out));
    } while (packer_.avail_out == 0);
}

}  // namespace orv
