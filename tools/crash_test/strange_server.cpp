#include "strange_server.h"

#include <arpa/inet.h>
#include <netinet/in.h>
#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <csignal>
#include <cstdlib>
#include <system_error>
#include <utility>

namespace crash_test {
namespace {

using Then = Strangeness::Then;

constexpr int kPatienceSeconds = 120;
constexpr int kWaiting = 8;
constexpr int kDribble = 1000;  // milliseconds
constexpr std::string_view kHeadEnd = "\r\n\r\n";
constexpr std::string_view kLength = "Content-Length: ";

sockaddr_in loopback(int port) {
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = ::htonl(INADDR_LOOPBACK);
    address.sin_port = ::htons(static_cast<std::uint16_t>(port));
    return address;
}

int newSocket() {
    const int made = ::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0);
    if (made < 0) {
        throw std::system_error(errno, std::generic_category(), "socket");
    }
    return made;
}

/// True if a request or an answer is complete.
bool isWhole(const std::string& bytes) {
    const std::size_t head = bytes.find(kHeadEnd);
    const std::size_t length = bytes.find(kLength);
    const bool hasBody = length < head;
    const std::size_t body = hasBody ? std::strtoul(bytes.c_str() + length + kLength.size(), nullptr, 10) : 0;
    return head != std::string::npos && bytes.size() >= head + kHeadEnd.size() + body;
}

Asked kindOf(const std::string& request) {
    return request.starts_with("PUT") ? Asked::Photo : request.starts_with("POST") ? Asked::Company : Asked::Prepare;
}

}  // namespace

Port::Port() : socket_(newSocket()) {
    const sockaddr_in any = loopback(0);
    if (::bind(socket_, reinterpret_cast<const sockaddr*>(&any), sizeof any) != 0 || ::listen(socket_, kWaiting) != 0) {
        throw std::system_error(errno, std::generic_category(), "port");
    }
}

Port::~Port() { ::close(socket_); }

std::string Port::number() const {
    sockaddr_in bound{};
    socklen_t size = sizeof bound;
    ::getsockname(socket_, reinterpret_cast<sockaddr*>(&bound), &size);
    return std::to_string(::ntohs(bound.sin_port));
}

bool Port::wasVisited() const {
    pollfd waiting{socket_, POLLIN, 0};
    bool found = false;
    while (::poll(&waiting, 1, 0) > 0) {
        ::close(::accept(socket_, nullptr, nullptr));
        found = true;
    }
    return found;
}

/// One connection, in plain text or TLS.
class StrangeServer::Wire {
public:
    explicit Wire(int socket) : socket_(socket), tls_(nullptr, SSL_free) {
        const timeval patience{kPatienceSeconds, 0};
        ::setsockopt(socket_, SOL_SOCKET, SO_RCVTIMEO, &patience, sizeof patience);
        ::setsockopt(socket_, SOL_SOCKET, SO_SNDTIMEO, &patience, sizeof patience);
    }
    Wire(const Wire&) = delete;
    Wire& operator=(const Wire&) = delete;
    ~Wire() {
        if (tls_) {
            SSL_shutdown(tls_.get());
        }
        ::close(socket_);
    }

    bool reach(int port) const {
        const sockaddr_in server = loopback(port);
        return ::connect(socket_, reinterpret_cast<const sockaddr*>(&server), sizeof server) == 0;
    }
    bool shakeHands(SSL_CTX* context) {
        tls_.reset(context == nullptr ? nullptr : SSL_new(context));
        return context == nullptr || (SSL_set_fd(tls_.get(), socket_) == 1 && SSL_accept(tls_.get()) == 1);
    }
    /// Returns the first available bytes without removing them.
    std::string begun() const {
        char bytes[16] = {};
        const ssize_t count =
            tls_ ? SSL_peek(tls_.get(), bytes, sizeof bytes) : ::recv(socket_, bytes, sizeof bytes, MSG_PEEK);
        return {bytes, static_cast<std::size_t>(std::max<ssize_t>(count, 0))};
    }
    /// Returns "" if the peer has disconnected.
    std::string take() const {
        char bytes[16384];
        const ssize_t count =
            tls_ ? SSL_read(tls_.get(), bytes, sizeof bytes) : ::recv(socket_, bytes, sizeof bytes, 0);
        return {bytes, static_cast<std::size_t>(std::max<ssize_t>(count, 0))};
    }
    std::string takeWhole() const {
        std::string all;
        for (std::string more = " "; !more.empty() && !isWhole(all);) {
            more = take();
            all += more;
        }
        return all;
    }
    bool give(std::string_view bytes) const {
        while (!bytes.empty()) {
            const ssize_t sent = tls_ ? SSL_write(tls_.get(), bytes.data(), static_cast<int>(bytes.size()))
                                      : ::send(socket_, bytes.data(), bytes.size(), MSG_NOSIGNAL);
            if (sent <= 0) {
                return false;
            }
            bytes.remove_prefix(static_cast<std::size_t>(sent));
        }
        return true;
    }
    void giveWithoutEnd(const std::string& piece) const {
        const auto end = std::chrono::steady_clock::now() + std::chrono::seconds(kPatienceSeconds);
        while (std::chrono::steady_clock::now() < end && give(piece)) {
        }
    }
    /// Sends until the peer disconnects.
    void dribble(std::string_view bytes) const {
        pollfd end{socket_, POLLRDHUP, 0};
        while (!bytes.empty() && give(bytes.substr(0, 1)) && ::poll(&end, 1, kDribble) == 0) {
            bytes.remove_prefix(1);
        }
    }
    void giveStrangely(const std::string& bytes, const Strangeness& how) const {
        if (how.then == Then::Dribble) {
            dribble(bytes);
            return;
        }
        give(bytes);
        if (how.then == Then::Silence) {
            take();
        } else if (how.then == Then::Flood) {
            giveWithoutEnd(how.flood);
        }
    }

private:
    int socket_;
    std::unique_ptr<SSL, decltype(&SSL_free)> tls_;
};

StrangeServer::StrangeServer(int behind) : behind_(behind), thread_([this] { serve(); }) {}

StrangeServer::~StrangeServer() {
    ::shutdown(port_.socket(), SHUT_RDWR);
    thread_.join();
}

void StrangeServer::speakTls(SSL_CTX* right, SSL_CTX* wrong, int before, int count) {
    const std::lock_guard lock(guard_);
    right_ = right;
    wrong_ = wrong;
    before_ = before;
    count_ = count;
}

SSL_CTX* StrangeServer::nextContext() {
    const std::lock_guard lock(guard_);
    const bool isWrong = before_ <= 0 && count_ > 0;
    --(isWrong ? count_ : before_);
    return isWrong ? wrong_ : right_;
}

void StrangeServer::befall(Asked kind, Strangeness strangeness) {
    const std::lock_guard lock(guard_);
    for (Desk& desk : desks_) {
        desk.requests = 0;
        desk.strangeness.reset();
    }
    deskOf(kind).strangeness = std::make_shared<const Strangeness>(std::move(strangeness));
}

StrangeServer::Desk StrangeServer::deskNow(Asked kind) const {
    const std::lock_guard lock(guard_);
    return desks_[static_cast<std::size_t>(kind)];
}

int StrangeServer::requests(Asked kind) const { return deskNow(kind).requests; }
std::string StrangeServer::trueAnswer(Asked kind) const { return deskNow(kind).trueAnswer; }
std::string StrangeServer::sentAnswer(Asked kind) const { return deskNow(kind).sentAnswer; }

void StrangeServer::serve() {
    sigset_t gone;
    ::sigemptyset(&gone);
    ::sigaddset(&gone, SIGPIPE);  // OpenSSL also writes to a disconnected peer
    ::pthread_sigmask(SIG_BLOCK, &gone, nullptr);
    for (int client = 0; (client = ::accept(port_.socket(), nullptr, nullptr)) >= 0;) {
        Wire wire(client);
        if (wire.shakeHands(nextContext())) {
            attend(wire);
        }
    }
}

void StrangeServer::attend(Wire& wire) {
    const Asked kind = kindOf(wire.begun());
    const auto strangeness = deskNow(kind).strangeness;
    const bool isUnread = strangeness && strangeness->isUnread;
    const std::string request = isUnread ? "" : wire.takeWhole();
    if (!isUnread && !isWhole(request)) {
        return;
    }
    const std::string answer = isUnread ? trueAnswer(kind) : handOn(request);
    const std::string sent = strangeness ? strangeness->change(answer) : answer;
    {
        const std::lock_guard lock(guard_);
        deskOf(kind) = {deskOf(kind).requests + 1, answer, sent, nullptr};
    }
    wire.giveStrangely(sent, strangeness ? *strangeness : Strangeness());
}

std::string StrangeServer::handOn(const std::string& request) const {
    Wire wire(newSocket());
    return wire.reach(behind_) && wire.give(request) ? wire.takeWhole() : "";
}

}  // namespace crash_test
