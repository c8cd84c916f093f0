#pragma once

#include <openssl/ssl.h>

#include <array>
#include <functional>
#include <memory>
#include <mutex>
#include <string>
#include <thread>

#include "platform/scope.h"

namespace crash_test {

/// The program's requests to the suite's server.
enum class Asked { Prepare, Photo, Company };
inline constexpr std::size_t kAskedKinds = 3;

/// The change to one answer.
struct Strangeness {
    enum class Then {
        Close,
        Silence,  // no more bytes follow
        Flood,    // `flood` follows endlessly
        Dribble,  // the bytes are sent slowly, one by one
    };
    std::function<std::string(const std::string& answer)> change = [](const std::string& answer) { return answer; };
    Then then = Then::Close;
    /// Sends the previous answer without reading the request.
    bool isUnread = false;
    std::string flood = {};
};

/// A port of this machine without a server. It counts the connections made to it.
class Port : orv::NonCopyable {
public:
    Port();
    ~Port();

    std::string number() const;
    int socket() const { return socket_; }
    /// True if there were connections since the last call.
    bool wasVisited() const;

private:
    int socket_;
};

/// A proxy for the suite's server that forwards each request and its answer, and changes one answer.
class StrangeServer : orv::NonCopyable {
public:
    /// `behind` is the port of the suite's server.
    explicit StrangeServer(int behind);
    ~StrangeServer();

    std::string port() const { return port_.number(); }
    /// Accepts only TLS from now on. Shows the certificate of `wrong` to `count` connections after the next `before`
    /// ones, and that of `right` to all others.
    void speakTls(SSL_CTX* right, SSL_CTX* wrong, int before, int count);
    /// Changes the next answer of that kind and keeps the others. Counts the requests from 0 again.
    void befall(Asked kind, Strangeness strangeness);

    int requests(Asked kind) const;
    /// Returns the last answer of that kind: the original, and the one sent instead.
    std::string trueAnswer(Asked kind) const;
    std::string sentAnswer(Asked kind) const;

private:
    struct Desk {
        int requests = 0;
        std::string trueAnswer;
        std::string sentAnswer;
        std::shared_ptr<const Strangeness> strangeness;
    };
    class Wire;

    void serve();
    SSL_CTX* nextContext();
    void attend(Wire& wire);
    std::string handOn(const std::string& request) const;
    Desk& deskOf(Asked kind) { return desks_[static_cast<std::size_t>(kind)]; }
    Desk deskNow(Asked kind) const;

    int behind_;
    Port port_;
    mutable std::mutex guard_;
    std::array<Desk, kAskedKinds> desks_;
    SSL_CTX* right_ = nullptr;
    SSL_CTX* wrong_ = nullptr;
    int before_ = 0;
    int count_ = 0;
    std::thread thread_;
};

}  // namespace crash_test
