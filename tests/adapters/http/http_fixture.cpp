#include "http_fixture.h"

#include <arpa/inet.h>
#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>

#include <array>
#include <charconv>
#include <stdexcept>

namespace orv {
namespace {

int listenAnywhere(int& port) {
    const int listener = ::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0);
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    socklen_t size = sizeof address;
    auto* plain = reinterpret_cast<sockaddr*>(&address);
    if (::bind(listener, plain, size) != 0 || ::listen(listener, 8) != 0 ||
        ::getsockname(listener, plain, &size) != 0) {
        throw std::runtime_error("no port");
    }
    port = ntohs(address.sin_port);
    return listener;
}

bool isWhole(const std::string& request) {
    const std::size_t end = request.find("\r\n\r\n");
    if (end == std::string::npos) {
        return false;
    }
    std::size_t length = 0;
    if (const std::size_t at = request.find("Content-Length: "); at < end) {
        std::from_chars(request.data() + at + 16, request.data() + end, length);
    }
    return request.size() >= end + 4 + length;
}

}  // namespace

RunningSuite::RunningSuite(const std::filesystem::path& folder)
    : folder_(folder), server_(folder), port_(server_.bind(0)), thread_([this] { server_.serve(); }) {
    if (port_ <= 0) {
        throw std::runtime_error("no port");
    }
}

RunningSuite::~RunningSuite() {
    server_.stop();
    thread_.join();
}

void RunningSuite::misbehave(const std::string& instruction) {
    if (!server_.instruct(instruction)) {
        throw std::runtime_error(instruction);
    }
}

std::string RunningSuite::log() const { return readFile(folder_ / "requests.log"); }

RawServer::RawServer(std::string answer, bool silent)
    : answer_(std::move(answer)), silent_(silent), listener_(listenAnywhere(port_)), thread_([this] { serve(); }) {}

RawServer::~RawServer() {
    stopping_ = true;
    thread_.join();
    ::close(listener_);
}

void RawServer::serve() {
    while (!stopping_) {
        pollfd waiting{listener_, POLLIN, 0};
        if (::poll(&waiting, 1, 10) > 0) {
            const int client = ::accept4(listener_, nullptr, nullptr, SOCK_CLOEXEC);
            converse(client);
            ::close(client);
        }
    }
}

void RawServer::converse(int client) {
    std::string request;
    std::array<char, 65536> buffer{};
    while (!isWhole(request)) {
        const ssize_t got = ::recv(client, buffer.data(), buffer.size(), 0);
        if (got <= 0) {
            return;
        }
        request.append(buffer.data(), static_cast<std::size_t>(got));
    }
    requests_.push_back(std::move(request));
    while (silent_ && !stopping_) {
        std::this_thread::sleep_for(std::chrono::milliseconds(5));
    }
    std::string_view rest = answer_;
    while (!rest.empty()) {
        const ssize_t sent = ::send(client, rest.data(), rest.size(), MSG_NOSIGNAL);
        if (sent <= 0) {
            return;
        }
        rest.remove_prefix(static_cast<std::size_t>(sent));
    }
}

std::string deafUrl() {
    int port = 0;
    ::close(listenAnywhere(port));
    return "http://127.0.0.1:" + std::to_string(port) + "/";
}

}  // namespace orv
