#include "platform/waiting.h"

#include <utility>

namespace orv {
namespace {

using Clock = std::chrono::steady_clock;

struct Hook {
    std::function<void()> paint;
    Clock::time_point next;
};

thread_local Hook hook;

}  // namespace

void whileWaiting() {
    if (hook.paint && Clock::now() >= hook.next) {
        hook.paint();
        hook.next = Clock::now() + kWaitingPause;
    }
}

void setWhileWaiting(std::function<void()> paint, std::chrono::milliseconds first) {
    hook = {std::move(paint), Clock::now() + first};
}

}  // namespace orv
