#include "archive_file.h"

#include <archive.h>
#include <archive_entry.h>

#include <cerrno>
#include <ctime>

#include "adapters/store/file_path.h"
#include "keeper.h"

namespace orv {
namespace {

struct EntryCloser {
    void operator()(archive_entry* entry) const noexcept { archive_entry_free(entry); }
};

int fail(archive* writer) {
    archive_set_error(writer, EIO, "the disk is full or not writable");
    return ARCHIVE_FATAL;
}

la_ssize_t writeToFile(archive* writer, void* file, const void* bytes, std::size_t size) {
    auto& stream = *static_cast<std::ofstream*>(file);
    const bool isWritten = !!stream.write(static_cast<const char*>(bytes), static_cast<std::streamsize>(size));
    return isWritten ? static_cast<la_ssize_t>(size) : fail(writer);
}

int closeFile(archive* writer, void* file) {
    auto& stream = *static_cast<std::ofstream*>(file);
    stream.close();
    return stream ? ARCHIVE_OK : fail(writer);
}

}  // namespace

void ArchiveFile::Closer::operator()(archive* open) const noexcept { archive_write_free(open); }

ArchiveFile::ArchiveFile(const std::string& path)
    : file_(filePath(path), std::ios::binary), archive_(archive_write_new()) {
    require(archive_write_add_filter_gzip(archive_.get()));
    require(archive_write_set_format_pax_restricted(archive_.get()));
    require(archive_write_open(archive_.get(), &file_, nullptr, writeToFile, closeFile));
}

void ArchiveFile::add(const std::string& name, const std::string& bytes) {
    const std::unique_ptr<archive_entry, EntryCloser> entry(archive_entry_new());
    archive_entry_set_pathname(entry.get(), name.c_str());
    archive_entry_set_filetype(entry.get(), AE_IFREG);
    archive_entry_set_perm(entry.get(), 0600);
    archive_entry_set_size(entry.get(), static_cast<la_int64_t>(bytes.size()));
    archive_entry_set_mtime(entry.get(), std::time(nullptr), 0);
    require(archive_write_header(archive_.get(), entry.get()));
    if (archive_write_data(archive_.get(), bytes.data(), bytes.size()) != static_cast<la_ssize_t>(bytes.size())) {
        require(ARCHIVE_FATAL);
    }
}

void ArchiveFile::finish() { require(archive_write_close(archive_.get())); }

void ArchiveFile::require(int result) const {
    if (result != ARCHIVE_OK) {
        const char* text = archive_error_string(archive_.get());
        throw KeeperFailure(std::string("the archive cannot be written: ") + (text == nullptr ? "" : text));
    }
}

}  // namespace orv
