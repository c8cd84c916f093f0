#pragma once

#include <functional>
#include <string>
#include <vector>

#include "calls.h"

namespace prove {

/// What befalls a program, and at which of its calls: `at` counts from 1 those to which it can happen.
struct Strike {
    enum class Way {
        Nothing,
        Kill,         // before the call
        KillHalfway,  // in the middle of a writing
        Once,         // the call gets `answer`
        Lasting,      // and so does each later one that can, until the event is over
        Cut,          // the connection ends before a call that sends or receives
        Halfway,      // as Lasting, but the first, a writing, is done by half
    };
    Way way = Way::Nothing;
    int at = 0;
    Answer answer = 0;
};

/// What became of a run.
struct Outcome {
    /// The call that was struck and what it worked on, and the files that later ones were refused on; empty: the run
    /// had no such call.
    std::vector<std::string> struck;
    bool killed = false;
    /// Ended by itself with status 0; `ending` says how it ended otherwise.
    bool fine = false;
    std::string ending;
    int calls = 0;
};

/// Tells the one who watches that an event is over.
void eventIsOver();

/// Runs `body` in a process of its own in which each call is watched that works on a file below one of `folders`, or on
/// a socket. `onEvent` is called, while the process stands still, each time that an event is over. Nothing waits for
/// the disk: what a dead process has written is not lost. Throws where the machine does not allow the watching.
Outcome runStruck(const std::vector<std::string>& folders, const Strike& strike, const std::function<void()>& body,
                  const std::function<void()>& onEvent);

}  // namespace prove
