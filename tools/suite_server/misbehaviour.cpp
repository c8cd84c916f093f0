#include "misbehaviour.h"

#include <charconv>
#include <utility>

namespace orv {
namespace {

constexpr auto kDeskNames = std::to_array<std::pair<std::string_view, Desk>>(
    {{"prepare", Desk::Prepare}, {"photos", Desk::Photos}, {"companies", Desk::Companies}});

struct Kind {
    std::string_view name;
    int least;  // both 0: the kind takes no value
    int most;
    void (*apply)(Misbehaviour&, int);
};

constexpr auto kKinds = std::to_array<Kind>({
    {"well", 0, 0, [](Misbehaviour& m, int) { m = {}; }},
    {"cut", 0, 0, [](Misbehaviour& m, int) { m.cut = true; }},
    {"garbage", 0, 0, [](Misbehaviour& m, int) { m.garbage = true; }},
    {"status", 200, 599, [](Misbehaviour& m, int value) { m.status = value; }},
    {"delay", 0, 600'000, [](Misbehaviour& m, int value) { m.delay = std::chrono::milliseconds(value); }},
    {"gone", 1, 99, [](Misbehaviour& m, int value) { m.goneAt = value; }},
    {"id-length", 0, 64, [](Misbehaviour& m, int value) { m.idLength = static_cast<std::size_t>(value); }},
});

std::pair<std::string_view, std::string_view> splitAt(std::string_view text, char separator) {
    const std::size_t place = text.find(separator);
    return place == text.npos ? std::pair{text, std::string_view{}}
                              : std::pair{text.substr(0, place), text.substr(place + 1)};
}

bool apply(std::string_view text, Misbehaviour& behaviour) {
    const auto [name, value] = splitAt(text, '=');
    for (const auto& kind : kKinds) {
        if (kind.name != name) {
            continue;
        }
        int number = 0;
        if (kind.most > 0) {
            const auto [end, error] = std::from_chars(value.data(), value.data() + value.size(), number);
            if (error != std::errc{} || end != value.data() + value.size() || number < kind.least ||
                number > kind.most) {
                return false;
            }
        }
        kind.apply(behaviour, number);
        return true;
    }
    return false;
}

}  // namespace

bool MisbehaviourBoard::instruct(std::string_view instruction) {
    const std::lock_guard lock(guard_);
    if (instruction == "well") {
        byDesk_ = {};
        return true;
    }
    const auto [deskName, kind] = splitAt(instruction, ':');
    for (const auto& [name, desk] : kDeskNames) {
        if (name == deskName) {
            return apply(kind, byDesk_[static_cast<std::size_t>(desk)]);
        }
    }
    return false;
}

Misbehaviour MisbehaviourBoard::of(Desk desk) const {
    const std::lock_guard lock(guard_);
    return byDesk_[static_cast<std::size_t>(desk)];
}

Misbehaviour MisbehaviourBoard::arrivedAt(Desk desk) {
    const std::lock_guard lock(guard_);
    Misbehaviour& behaviour = byDesk_[static_cast<std::size_t>(desk)];
    const Misbehaviour now = behaviour;
    behaviour.goneAt -= behaviour.goneAt > 0 ? 1 : 0;
    return now;
}

}  // namespace orv
