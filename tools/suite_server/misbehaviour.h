#pragma once

#include <array>
#include <chrono>
#include <mutex>
#include <optional>
#include <string_view>

namespace orv {

/// What a client can ask for here.
enum class Desk { Prepare, Photos, Companies };

/// How a desk's answers are spoiled. A status is given instead of doing the work; with the rest the work is done and
/// only the answer suffers, which is the harder case for a client.
struct Misbehaviour {
    std::optional<int> status;
    std::chrono::milliseconds delay{0};
    bool cut = false;
    bool garbage = false;
    std::optional<std::size_t> idLength;
    /// The server ends at that request from now on, before it looks at it. 0: it stays.
    int goneAt = 0;
};

/// The misbehaviour of every desk, changed while requests are under way.
class MisbehaviourBoard {
public:
    /// Takes one instruction: "well" (all desks behave), or DESK:KIND[=VALUE] with DESK prepare, photos or companies
    /// and KIND well, status=200..599, delay=MILLISECONDS, cut, garbage, id-length=0..64, gone=1..99. Kinds add up.
    /// False: not understood.
    [[nodiscard]] bool instruct(std::string_view instruction);
    Misbehaviour of(Desk desk) const;
    /// The same for a request that has arrived, which counts.
    Misbehaviour arrivedAt(Desk desk);

private:
    mutable std::mutex guard_;
    std::array<Misbehaviour, 3> byDesk_;
};

}  // namespace orv
