#include "adapters/posix/sibling_socket.h"

#include <utility>

#include "adapters/posix/sibling_visit.h"

namespace orv {

SiblingSocket::SiblingSocket(const PosixStarter& programs, Watch watch)
    : programs_(programs), watch_(std::move(watch)) {}

SiblingSocket::~SiblingSocket() { dismiss(); }

void SiblingSocket::start(const std::string& commandLine, SiblingCalls calls) {
    dismiss();
    const auto visit = std::make_shared<SiblingVisit>(std::move(calls));
    visit->begin(programs_, commandLine, watch_);
    visit_ = visit;
}

void SiblingSocket::toFront() {
    if (visit_) {
        visit_->say("FRONT\n");
    }
}

void SiblingSocket::dismiss() {
    if (const auto visit = std::exchange(visit_, nullptr)) {
        visit->end();
    }
}

}  // namespace orv
