#pragma once

#include <functional>
#include <string>
#include <vector>

#include "calls.h"

namespace crash_test {

/// A failure injected into a program. `at` is the number, from 1, among the calls to which it applies.
struct Injection {
    enum class Kind {
        Nothing,
        Kill,         // before the call
        KillHalfway,  // in the middle of a write
        Once,         // the call returns `answer`
        Lasting,      // as does every later one until the event ends
        Cut,          // the connection ends before a call that sends or receives
        Halfway,      // like Lasting, but the first write is done by half
    };
    Kind kind = Kind::Nothing;
    int at = 0;
    Answer answer = 0;
};

/// The result of a run.
struct Outcome {
    /// The call with the injected failure and its object, then the files on which later calls failed. Empty if the run
    /// had no such call.
    std::vector<std::string> injected;
    bool killed = false;
    /// True if the process ended by itself with status 0; otherwise `ending` says how it ended.
    bool fine = false;
    std::string ending;
    int calls = 0;
};

/// Notifies the watching process that an event has ended.
void eventIsOver();

/// Runs `body` in a separate process and watches each call on a file in `folders` or on a socket. Calls `onEvent` while
/// the process is stopped, each time an event has ended. Nothing is flushed to the disk, because the writes of a dead
/// process are not lost. Throws if the machine does not allow the watching.
Outcome runTraced(const std::vector<std::string>& folders, const Injection& injection,
                  const std::function<void()>& body, const std::function<void()>& onEvent);

}  // namespace crash_test
