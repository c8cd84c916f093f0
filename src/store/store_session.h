#pragma once

#include <string>

namespace orv {

/// The store, open for one event. Destroying it closes the store, whatever happened between.
class StoreSession {
public:
    StoreSession() = default;
    StoreSession(const StoreSession&) = delete;
    StoreSession& operator=(const StoreSession&) = delete;
    ~StoreSession();

    /// Closes what may be open and opens the store afresh. False: the pair tells why.
    [[nodiscard]] bool openFresh();
    /// The same for an event that knows that nothing is open.
    [[nodiscard]] bool open();
    /// False: the pair tells why.
    [[nodiscard]] bool close();

private:
    bool open_ = false;
};

}  // namespace orv
