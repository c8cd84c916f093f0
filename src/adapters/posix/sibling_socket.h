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

/// Hears a sibling program by a local socket of its own, which takes one connection. Each line of that, ended by LF, is
/// obeyed (sibling_words.h) and answered by "OK" or "NG". A line "FRONT" asks the program to bring its window to the
/// front. The program is gone when it closes the connection, sends a
/// line of more than 4096 bytes, or, not connected, has ended with all that it has started.
class SiblingSocket : public SiblingPrograms {
public:
    /// Calls `readable` from the event loop whenever the descriptor can be read, until the result is released.
    using Watch = std::function<std::shared_ptr<void>(int descriptor, std::function<void()> readable)>;

    SiblingSocket(const PosixStarter& programs, Watch watch);
    ~SiblingSocket() override;

    /// Also failure 57 when no socket can be made.
    void start(const std::string& commandLine, SiblingCalls calls) override;
    void toFront() override;
    void dismiss() override;

private:
    const PosixStarter& programs_;
    Watch watch_;
    std::shared_ptr<SiblingSession> session_;
};

}  // namespace orv
