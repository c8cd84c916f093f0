#include "adapters/posix/sibling_socket.h"

#include <utility>

#include "adapters/posix/sibling_session.h"

namespace orv {

SiblingSocket::SiblingSocket(const PosixStarter& programs, Watch watch)
    : programs_(programs), watch_(std::move(watch)) {}

SiblingSocket::~SiblingSocket() { dismiss(); }

void SiblingSocket::start(const std::string& commandLine, SiblingCalls calls) {
    dismiss();
    const auto session = std::make_shared<SiblingSession>(std::move(calls));
    session->begin(programs_, commandLine, watch_);
    session_ = session;
}

void SiblingSocket::bringToFront() {
    if (session_) {
        session_->send("FRONT\n");
    }
}

void SiblingSocket::dismiss() {
    if (const auto session = std::exchange(session_, nullptr)) {
        session->end();
    }
}

}  // namespace orv
