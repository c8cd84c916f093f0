#include "adapters/posix/sibling_visit.h"

#include <fcntl.h>
#include <sys/socket.h>

#include <array>
#include <cerrno>

#include "adapters/posix/sibling_words.h"
#include "platform/run_time_error.h"

namespace orv {
namespace {

constexpr std::size_t kLongestLine = 4096;

struct Pipe {
    Descriptor readEnd;
    Descriptor writeEnd;
};

Pipe makePipe() {
    std::array<int, 2> ends{};
    if (::pipe2(ends.data(), O_CLOEXEC | O_NONBLOCK) != 0) {
        throw RunTimeError(Failure::DeviceIo);
    }
    return {Descriptor(ends[0]), Descriptor(ends[1])};
}

bool mayComeAgain(ssize_t count) { return count < 0 && (errno == EAGAIN || errno == EINTR); }

}  // namespace

/// The program holds the write end of a pipe to which nobody writes: the other end can be read when the last holder has
/// ended.
void SiblingVisit::begin(const PosixStarter& programs, const std::string& commandLine,
                         const SiblingSocket::Watch& watch) {
    watch_ = watch;
    socket_ = std::make_unique<PrivateSocket>();
    Pipe life = makePipe();
    programs.startWith(commandLine, {.environment = {kSiblingSocketVariable + ("=" + socket_->path())},
                                     .lifeLine = life.writeEnd.number()});
    life_.descriptor = std::move(life.readEnd);
    life_.watch = watched(life_.descriptor, &SiblingVisit::lifeEnded);
    knocks_ = watched(socket_->listener(), &SiblingVisit::knocked);
}

void SiblingVisit::end() {
    over_ = true;
    connection_.close();
    life_.close();
    knocks_.reset();
    socket_.reset();
}

/// A call that has begun keeps the visit until it returns.
std::shared_ptr<void> SiblingVisit::watched(const Descriptor& descriptor, void (SiblingVisit::*act)()) {
    return watch_(descriptor.number(), [weak = weak_from_this(), act] {
        const auto visit = weak.lock();
        if (visit && !visit->over_) {
            (*visit.*act)();
        }
    });
}

/// Whoever knocks beside the one who has come in is shown out.
void SiblingVisit::knocked() {
    Descriptor visitor = socket_->accept();
    if (visitor && !connection_.descriptor) {
        connection_.descriptor = std::move(visitor);
        connection_.watch = watched(connection_.descriptor, &SiblingVisit::spoke);
    }
}

/// What a program that has ended had still to say waits at the socket.
void SiblingVisit::lifeEnded() {
    life_.close();
    if (!connection_.descriptor) {
        knocked();
    }
    if (!connection_.descriptor) {
        leave();
    }
}

void SiblingVisit::spoke() {
    std::array<char, kLongestLine> bytes{};
    const ssize_t count = ::read(connection_.descriptor.number(), bytes.data(), bytes.size());
    if (mayComeAgain(count)) {
        return;
    }
    if (count <= 0) {
        leave();
        return;
    }
    heard_.append(bytes.data(), static_cast<std::size_t>(count));
    obeyLines();
}

void SiblingVisit::obeyLines() {
    while (!over_) {
        const std::size_t end = heard_.find('\n');
        if (std::min(end, heard_.size()) > kLongestLine) {
            leave();
        } else if (end == std::string::npos) {
            return;
        } else {
            const std::string line = heard_.substr(0, end);
            heard_.erase(0, end + 1);
            say(obey(line, calls_) ? "OK\n" : "NG\n");
        }
    }
}

/// A program that has stopped reading must not stop this one.
void SiblingVisit::say(std::string_view line) const {
    if (!over_ && connection_.descriptor) {
        ::send(connection_.descriptor.number(), line.data(), line.size(), MSG_NOSIGNAL | MSG_DONTWAIT);
    }
}

void SiblingVisit::leave() {
    end();
    calls_.gone();
}

}  // namespace orv
