#pragma once

#include <string>

#include "platform/scope.h"

namespace orv {

/// The store, open during one event. The destructor always closes it.
class StoreSession : NonCopyable {
public:
    ~StoreSession();

    /// Closes an open store and opens it again. On false the pair holds the failure.
    [[nodiscard]] bool openFresh();
    /// The same for an event during which no store is open yet.
    [[nodiscard]] bool open();
    /// On false the pair holds the failure.
    [[nodiscard]] bool close();

private:
    bool open_ = false;
};

}  // namespace orv
