#pragma once

#include <memory>
#include <string>
#include <string_view>

#include "adapters/posix/private_socket.h"
#include "adapters/posix/sibling_socket.h"

namespace orv {

/// One sibling program, from its start until it has ended or is dismissed. It can be dismissed within one of its calls,
/// and events can be raised again inside a call.
class SiblingSession : public std::enable_shared_from_this<SiblingSession> {
public:
    explicit SiblingSession(SiblingCalls calls) : calls_(std::move(calls)) {}

    void begin(const PosixStarter& programs, const std::string& commandLine, const SiblingSocket::Watch& watch);
    /// Does nothing if the program is not connected.
    void send(std::string_view line) const;
    /// Closes everything. Nothing is called afterwards.
    void end();

private:
    /// An open descriptor and its watch. The watch is released first.
    struct Watched {
        Descriptor descriptor;
        std::shared_ptr<void> watch;
        void close() {
            watch.reset();
            descriptor = Descriptor();
        }
    };

    std::shared_ptr<void> watched(const Descriptor& descriptor, void (SiblingSession::*act)());
    void acceptConnection();
    void handleExit();
    void receive();
    void handleLines();
    void leave();

    SiblingCalls calls_;
    SiblingSocket::Watch watch_;
    std::unique_ptr<PrivateSocket> socket_;
    std::shared_ptr<void> listening_;
    Watched lifeLine_;
    Watched connection_;
    std::string received_;
    bool over_ = false;
};

}  // namespace orv
