#pragma once

#include <functional>
#include <memory>
#include <string>

#include "adapters/posix/posix_starter.h"
#include "platform/machine/sibling_programs.h"

namespace orv {

class SiblingSession;

/// The environment variable in which a sibling program finds the path of its socket.
inline constexpr const char* kSiblingSocketVariable = "ORV_SIBLING_SOCKET";

/// Receives the messages of a sibling program through a local socket of its own, which accepts one connection. Each
/// line ends with LF. It is handled (sibling_words.h) and answered by "OK" or "NG". A line "FRONT" asks the program to
/// bring its window to the front. The program counts as ended when it closes the connection or sends a line of more
/// than 4096 bytes. Without a connection, it counts as ended when it and all its children have ended.
class SiblingSocket : public SiblingPrograms {
public:
    /// Calls `readable` from the event loop whenever the descriptor can be read, until the result is released.
    using Watch = std::function<std::shared_ptr<void>(int descriptor, std::function<void()> readable)>;

    SiblingSocket(const PosixStarter& programs, Watch watch);
    ~SiblingSocket() override;

    /// Also failure 57 if no socket can be created.
    void start(const std::string& commandLine, SiblingCalls calls) override;
    void bringToFront() override;
    void dismiss() override;

private:
    const PosixStarter& programs_;
    Watch watch_;
    std::shared_ptr<SiblingSession> session_;
};

}  // namespace orv
