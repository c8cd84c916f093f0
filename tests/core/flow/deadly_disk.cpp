// The calls stand in front of the C library's own, for this program and for the libraries that it uses.

#include "core/flow/deadly_disk.h"

#include <dlfcn.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <cstdio>

namespace orv {
namespace {

int momentsLeft = 0;
bool armed = false;

bool lastMoment() { return momentsLeft > 0 && --momentsLeft == 0; }

void maybeDie() {
    if (lastMoment()) {
        ::raise(SIGKILL);
    }
}

template <class Function, class... Arguments>
auto libraryCall(const char* name, Arguments... arguments) {
    return reinterpret_cast<Function*>(::dlsym(RTLD_NEXT, name))(arguments...);
}

template <class Function, class... Arguments>
auto changing(const char* name, Arguments... arguments) {
    maybeDie();
    const auto result = libraryCall<Function>(name, arguments...);
    const int error = errno;
    maybeDie();
    errno = error;
    return result;
}

int syncing(const char* name, int file) { return armed ? 0 : libraryCall<int(int)>(name, file); }

template <class Function, class... Place>
auto writing(const char* name, int file, const void* bytes, std::size_t count, Place... place) {
    if (lastMoment()) {
        static_cast<void>(libraryCall<Function>(name, file, bytes, count / 2, place...));
        ::raise(SIGKILL);
    }
    return changing<Function>(name, file, bytes, count, place...);
}

}  // namespace

void dieAt(int moment) {
    armed = true;
    momentsLeft = moment;
}

}  // namespace orv

// NOLINTBEGIN: the C library names them.
extern "C" {

ssize_t write(int file, const void* bytes, size_t count) {
    return orv::writing<decltype(write)>("write", file, bytes, count);
}
ssize_t pwrite(int file, const void* bytes, size_t count, off_t at) {
    return orv::writing<decltype(pwrite)>("pwrite", file, bytes, count, at);
}
ssize_t pwrite64(int file, const void* bytes, size_t count, off64_t at) {
    return orv::writing<decltype(pwrite64)>("pwrite64", file, bytes, count, at);
}
int fsync(int file) { return orv::syncing("fsync", file); }
int fdatasync(int file) { return orv::syncing("fdatasync", file); }
int ftruncate(int file, off_t size) noexcept { return orv::changing<int(int, off_t)>("ftruncate", file, size); }
int ftruncate64(int file, off64_t size) noexcept { return orv::changing<int(int, off64_t)>("ftruncate64", file, size); }
int unlink(const char* path) noexcept { return orv::changing<int(const char*)>("unlink", path); }
int rename(const char* from, const char* to) noexcept {
    return orv::changing<int(const char*, const char*)>("rename", from, to);
}
int renameat2(int fromFolder, const char* from, int toFolder, const char* to, unsigned flags) noexcept {
    return orv::changing<int(int, const char*, int, const char*, unsigned)>("renameat2", fromFolder, from, toFolder, to,
                                                                            flags);
}
}
// NOLINTEND
