#pragma once

#include <openssl/ssl.h>

#include <array>
#include <functional>
#include <memory>
#include <mutex>
#include <string>
#include <thread>

namespace prove {

/// What the program asks the suite's server for.
enum class Asked { Prepare, Photo, Company };
inline constexpr std::size_t kAskedKinds = 3;

/// What becomes of one answer.
struct Strangeness {
    enum class Then {
        Close,
        Silence,  // nothing more comes
        Flood,    // `flood` comes, without end
        Dribble,  // the bytes come slowly, one by one
    };
    std::function<std::string(const std::string& answer)> change = [](const std::string& answer) { return answer; };
    Then then = Then::Close;
    /// The answer of the time before goes out, and the request is not read.
    bool isUnread = false;
    std::string flood = {};
};

/// A port of this machine. Nobody is behind it; the connections that were made to it can be counted.
class Port {
public:
    Port();
    Port(const Port&) = delete;
    Port& operator=(const Port&) = delete;
    ~Port();

    std::string number() const;
    int socket() const { return socket_; }
    /// Whether somebody has come since the last time that it was asked.
    bool wasVisited() const;

private:
    int socket_;
};

/// Stands before the suite's server: hands each request on and its true answer back, but for one that is made strange.
class StrangeServer {
public:
    /// `behind`: the port of the suite's server.
    explicit StrangeServer(int behind);
    StrangeServer(const StrangeServer&) = delete;
    StrangeServer& operator=(const StrangeServer&) = delete;
    ~StrangeServer();

    std::string port() const { return port_.number(); }
    /// From now on only over TLS: `count` connections behind the next `before` ones are shown what `wrong` has, all
    /// others what `right` has.
    void speakTls(SSL_CTX* right, SSL_CTX* wrong, int before, int count);
    /// The next answer of that kind; the others are true. The requests are counted from 0 again.
    void befall(Asked kind, Strangeness strangeness);

    int requests(Asked kind) const;
    /// The last answer of that kind: the true one, and what went out in its place.
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

}  // namespace prove
