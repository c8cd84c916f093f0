#include "misbehaviour.h"

#include <charconv>
#include <utility>

namespace orv {
namespace {

constexpr auto kServiceNames = std::to_array<std::pair<std::string_view, Service>>(
    {{"prepare", Service::Prepare}, {"photos", Service::Photos}, {"companies", Service::Companies}});

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
        byService_ = {};
        return true;
    }
    const auto [serviceName, kind] = splitAt(instruction, ':');
    for (const auto& [name, service] : kServiceNames) {
        if (name == serviceName) {
            return apply(kind, byService_[static_cast<std::size_t>(service)]);
        }
    }
    return false;
}

Misbehaviour MisbehaviourBoard::of(Service service) const {
    const std::lock_guard lock(guard_);
    return byService_[static_cast<std::size_t>(service)];
}

Misbehaviour MisbehaviourBoard::countRequest(Service service) {
    const std::lock_guard lock(guard_);
    Misbehaviour& behaviour = byService_[static_cast<std::size_t>(service)];
    const Misbehaviour now = behaviour;
    behaviour.goneAt -= behaviour.goneAt > 0 ? 1 : 0;
    return now;
}

}  // namespace orv
