#pragma once

#include <array>
#include <chrono>
#include <mutex>
#include <optional>
#include <string_view>

namespace orv {

/// The services of this server.
enum class Service { Prepare, Photos, Companies };

/// A fault in a service's answers. A status is sent instead of doing the work. With the other faults the work is done
/// and only the answer is wrong, which is harder for a client.
struct Misbehaviour {
    std::optional<int> status;
    std::chrono::milliseconds delay{0};
    bool cut = false;
    bool garbage = false;
    std::optional<std::size_t> idLength;
    /// If not 0, the server ends at that request, before reading it.
    int goneAt = 0;
};

/// The faults of every service. Can be changed while requests are handled.
class MisbehaviourBoard {
public:
    /// Handles one instruction: "well" (no faults), or SERVICE:KIND[=VALUE]. SERVICE is prepare, photos or companies.
    /// KIND is well, status=200..599, delay=MILLISECONDS, cut, garbage, id-length=0..64 or gone=1..99. Kinds can be
    /// combined. False if the instruction is invalid.
    [[nodiscard]] bool instruct(std::string_view instruction);
    Misbehaviour of(Service service) const;
    /// Returns the faults for a request that has arrived, and counts it.
    Misbehaviour countRequest(Service service);

private:
    mutable std::mutex guard_;
    std::array<Misbehaviour, 3> byService_;
};

}  // namespace orv
