#include "calls.h"

#include <poll.h>
#include <sys/socket.h>
#include <sys/syscall.h>
#include <sys/uio.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <climits>
#include <cstring>

namespace crash_test {
namespace {

constexpr const char* kSocket = "socket";
const std::vector<Answer> kNever;
const std::vector<Answer> kOpen{EACCES, EMFILE, ENOSPC, EIO};
const std::vector<Answer> kLook{EACCES, EIO};
const std::vector<Answer> kRead{EIO};
const std::vector<Answer> kWrite{ENOSPC, EIO};
const std::vector<Answer> kFlush{EIO};
const std::vector<Answer> kName{EACCES, EIO};
const std::vector<Answer> kLock{ENOLCK};
const std::vector<Answer> kConnect{ECONNREFUSED, ETIMEDOUT};

const std::vector<CallKind> kKinds{
    {SYS_open, "open", Named::ByPath, 0, kOpen},
    {SYS_openat, "openat", Named::ByPath, 1, kOpen},
    {SYS_stat, "stat", Named::ByPath, 0, kLook},
    {SYS_lstat, "lstat", Named::ByPath, 0, kLook},
    {SYS_newfstatat, "newfstatat", Named::ByPath, 1, kLook},
    {SYS_statx, "statx", Named::ByPath, 1, kLook},
    {SYS_access, "access", Named::ByPath, 0, kLook},
    {SYS_faccessat, "faccessat", Named::ByPath, 1, kLook},
    {SYS_faccessat2, "faccessat2", Named::ByPath, 1, kLook},
    {SYS_unlink, "unlink", Named::ByPath, 0, kName},
    {SYS_unlinkat, "unlinkat", Named::ByPath, 1, kName},
    {SYS_rename, "rename", Named::ByPath, 0, kName},
    {SYS_renameat, "renameat", Named::ByPath, 1, kName},
    {SYS_renameat2, "renameat2", Named::ByPath, 1, kName},
    {SYS_mkdir, "mkdir", Named::ByPath, 0, kName},
    {SYS_mkdirat, "mkdirat", Named::ByPath, 1, kName},
    {SYS_truncate, "truncate", Named::ByPath, 0, kFlush},
    {SYS_read, "read", Named::ByDescriptor, 0, kRead},
    {SYS_pread64, "pread64", Named::ByDescriptor, 0, kRead},
    {SYS_write, "write", Named::ByDescriptor, 0, kWrite, true},
    {SYS_pwrite64, "pwrite64", Named::ByDescriptor, 0, kWrite, true},
    {SYS_writev, "writev", Named::ByDescriptor, 0, kWrite},
    {SYS_ftruncate, "ftruncate", Named::ByDescriptor, 0, kFlush},
    {SYS_fallocate, "fallocate", Named::ByDescriptor, 0, kWrite},
    {SYS_fsync, "fsync", Named::ByDescriptor, 0, kFlush, false, true},
    {SYS_fdatasync, "fdatasync", Named::ByDescriptor, 0, kFlush, false, true},
    {SYS_fstat, "fstat", Named::ByDescriptor, 0, kRead},
    {SYS_fchmod, "fchmod", Named::ByDescriptor, 0, kName},
    {SYS_fcntl, "fcntl", Named::ByDescriptor, 0, kLock},
    {SYS_flock, "flock", Named::ByDescriptor, 0, kLock},
    {SYS_getdents64, "getdents64", Named::ByDescriptor, 0, kRead},
    {SYS_lseek, "lseek", Named::ByDescriptor, 0, kNever},
    {SYS_close, "close", Named::ByDescriptor, 0, kNever},
    {SYS_socket, "socket", Named::ByDomain, 0, {EMFILE}},
    {SYS_connect, "connect", Named::ByDescriptor, 0, kConnect},
    {SYS_sendto, "sendto", Named::ByDescriptor, 0, kNever, false, false, true},
    {SYS_recvfrom, "recvfrom", Named::ByDescriptor, 0, kNever, false, false, true},
    {SYS_getsockopt, "getsockopt", Named::ByDescriptor, 0, kNever},
    {SYS_setsockopt, "setsockopt", Named::ByDescriptor, 0, kNever},
    {SYS_shutdown, "shutdown", Named::ByDescriptor, 0, kNever},
    {SYS_poll, "poll", Named::ByPollList, 0, {ETIMEDOUT}},
};

/// Stops at the end of a page, because a read into an unmapped page returns nothing.
std::string textAt(pid_t process, unsigned long long address) {
    constexpr std::size_t kPart = 256;
    std::string text;
    std::array<char, kPart> part{};
    while (text.size() < PATH_MAX) {
        const std::size_t size = kPart - address % kPart;
        iovec here{part.data(), size};
        iovec there{reinterpret_cast<void*>(address), size};  // NOLINT(performance-no-int-to-ptr)
        if (::process_vm_readv(process, &here, 1, &there, 1, 0) != static_cast<ssize_t>(size)) {
            return {};
        }
        const std::size_t length = ::strnlen(part.data(), size);
        text.append(part.data(), length);
        if (length < size) {
            return text;
        }
        address += size;
    }
    return {};
}

std::string readDescriptor(pid_t process, unsigned long long descriptor) {
    const std::string link = "/proc/" + std::to_string(process) + "/fd/" + std::to_string(static_cast<int>(descriptor));
    std::array<char, PATH_MAX> target{};
    const ssize_t length = ::readlink(link.c_str(), target.data(), target.size());
    const std::string name(target.data(), static_cast<std::size_t>(std::max<ssize_t>(length, 0)));
    return name.starts_with("socket:") ? kSocket : name;
}

/// A relative or empty path refers to the open folder.
std::string inFolder(const std::string& folder, const std::string& path) {
    if (path.starts_with('/') || folder.empty()) {
        return path;
    }
    return path.empty() ? folder : folder + "/" + path;
}

std::string firstPolled(pid_t process, unsigned long long address) {
    pollfd first{};
    iovec here{&first, sizeof first};
    iovec there{reinterpret_cast<void*>(address), sizeof first};  // NOLINT(performance-no-int-to-ptr)
    const bool isRead = ::process_vm_readv(process, &here, 1, &there, 1, 0) == sizeof first;
    return isRead ? readDescriptor(process, static_cast<unsigned long long>(first.fd)) : std::string();
}

std::vector<long> listNumbers(bool flushingOnly) {
    std::vector<long> numbers;
    for (const CallKind& kind : kKinds) {
        if (kind.isFlush || !flushingOnly) {
            numbers.push_back(kind.number);
        }
    }
    return numbers;
}

}  // namespace

std::vector<long> knownCalls() { return listNumbers(false); }

std::vector<long> flushingCalls() { return listNumbers(true); }

const CallKind* findKind(long number) {
    const auto found = std::ranges::find(kKinds, number, &CallKind::number);
    return found == kKinds.end() ? nullptr : &*found;
}

bool canAnswer(const CallKind& kind, Answer answer) {
    return std::ranges::find(kind.answers, answer) != kind.answers.end();
}

std::string readObject(const CallKind& kind, pid_t process, const unsigned long long* arguments) {
    const unsigned long long named = arguments[kind.place];
    switch (kind.named) {
        case Named::ByPath:
            return kind.place == 1 ? inFolder(readDescriptor(process, arguments[0]), textAt(process, named))
                                   : textAt(process, named);
        case Named::ByDescriptor:
            return readDescriptor(process, named);
        case Named::ByPollList:
            return firstPolled(process, named);
        case Named::ByDomain:
            return named == AF_INET || named == AF_UNIX ? kSocket : "";
    }
    return {};
}

}  // namespace crash_test
