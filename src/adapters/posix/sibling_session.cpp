#include "adapters/posix/sibling_session.h"

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

bool isTemporary(ssize_t count) { return count < 0 && (errno == EAGAIN || errno == EINTR); }

}  // namespace

/// The program holds the write end of a pipe to which nothing is written. The read end becomes readable when the last
/// holder has ended.
void SiblingSession::begin(const PosixStarter& programs, const std::string& commandLine,
                           const SiblingSocket::Watch& watch) {
    watch_ = watch;
    socket_ = std::make_unique<PrivateSocket>();
    Pipe life = makePipe();
    programs.startWith(commandLine, {.environment = {kSiblingSocketVariable + ("=" + socket_->path())},
                                     .lifeLine = life.writeEnd.number()});
    lifeLine_.descriptor = std::move(life.readEnd);
    lifeLine_.watch = watched(lifeLine_.descriptor, &SiblingSession::handleExit);
    listening_ = watched(socket_->listener(), &SiblingSession::acceptConnection);
}

void SiblingSession::end() {
    over_ = true;
    connection_.close();
    lifeLine_.close();
    listening_.reset();
    socket_.reset();
}

/// Keeps the session alive until a call that has begun returns.
std::shared_ptr<void> SiblingSession::watched(const Descriptor& descriptor, void (SiblingSession::*act)()) {
    return watch_(descriptor.number(), [weak = weak_from_this(), act] {
        const auto session = weak.lock();
        if (session && !session->over_) {
            (*session.*act)();
        }
    });
}

/// A second connection is closed at once.
void SiblingSession::acceptConnection() {
    Descriptor peer = socket_->accept();
    if (peer && !connection_.descriptor) {
        connection_.descriptor = std::move(peer);
        connection_.watch = watched(connection_.descriptor, &SiblingSession::receive);
    }
}

/// Messages that an ended program has sent can still be waiting at the socket.
void SiblingSession::handleExit() {
    lifeLine_.close();
    if (!connection_.descriptor) {
        acceptConnection();
    }
    if (!connection_.descriptor) {
        leave();
    }
}

void SiblingSession::receive() {
    std::array<char, kLongestLine> bytes{};
    const ssize_t count = ::read(connection_.descriptor.number(), bytes.data(), bytes.size());
    if (isTemporary(count)) {
        return;
    }
    if (count <= 0) {
        leave();
        return;
    }
    received_.append(bytes.data(), static_cast<std::size_t>(count));
    handleLines();
}

void SiblingSession::handleLines() {
    while (!over_) {
        const std::size_t end = received_.find('\n');
        if (std::min(end, received_.size()) > kLongestLine) {
            leave();
        } else if (end == std::string::npos) {
            return;
        } else {
            const std::string line = received_.substr(0, end);
            received_.erase(0, end + 1);
            send(handleLine(line, calls_) ? "OK\n" : "NG\n");
        }
    }
}

/// Never waits, because the program may have stopped reading.
void SiblingSession::send(std::string_view line) const {
    if (!over_ && connection_.descriptor) {
        ::send(connection_.descriptor.number(), line.data(), line.size(), MSG_NOSIGNAL | MSG_DONTWAIT);
    }
}

void SiblingSession::leave() {
    end();
    calls_.gone();
}

}  // namespace orv
