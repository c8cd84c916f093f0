#pragma once

#include <cerrno>

#include "struck_run.h"

namespace crash_test {

/// One kind of failure, injected at each of the calls to which it applies.
struct Way {
    const char* name;
    Strike::Way way;
    Answer answer;
};

inline constexpr Way kWays[] = {
    {"kill", Strike::Way::Kill, 0},
    {"kill within a writing", Strike::Way::KillHalfway, 0},
    {"EIO once", Strike::Way::Once, EIO},
    {"EIO lasting", Strike::Way::Lasting, EIO},
    {"EACCES once", Strike::Way::Once, EACCES},
    {"EACCES lasting", Strike::Way::Lasting, EACCES},
    {"ENOSPC once", Strike::Way::Once, ENOSPC},
    {"ENOSPC lasting", Strike::Way::Lasting, ENOSPC},
    {"ENOSPC within a writing", Strike::Way::Halfway, ENOSPC},
    {"ENOLCK once", Strike::Way::Once, ENOLCK},
    {"EMFILE once", Strike::Way::Once, EMFILE},
    {"EMFILE lasting", Strike::Way::Lasting, EMFILE},
    {"ECONNREFUSED once", Strike::Way::Once, ECONNREFUSED},
    {"ECONNREFUSED lasting", Strike::Way::Lasting, ECONNREFUSED},
    {"connection cut", Strike::Way::Cut, 0},
    {"ETIMEDOUT once", Strike::Way::Once, ETIMEDOUT},
    {"ETIMEDOUT lasting", Strike::Way::Lasting, ETIMEDOUT},
};

}  // namespace crash_test
