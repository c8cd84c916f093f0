#pragma once

#include <sys/types.h>

#include <string>
#include <vector>

namespace prove {

/// Where a call names what it works on.
enum class Named { ByPath, ByDescriptor, ByPollList, ByDomain };

/// The result of a call that is not done but answered: a number of <errno.h>, or `kNothing`, which means that the time
/// is over to a call that waits and that the other side has gone to a call that reads from it.
using Answer = int;
inline constexpr Answer kNothing = 0;

/// A call to the kernel that can touch a file or a wire.
struct CallKind {
    long number;
    const char* name;
    Named named;
    int place;  // of the argument that names
    std::vector<Answer> answers;
    bool isWrite = false;
    bool isFlush = false;
};

std::vector<long> knownCalls();
std::vector<long> flushingCalls();

/// Null for every other call.
const CallKind* kindOf(long number);

bool canAnswer(const CallKind& kind, Answer answer);

/// What a call of that stopped process works on: a path, or "socket". Empty where it is neither.
std::string objectOf(const CallKind& kind, pid_t process, const unsigned long long* arguments);

}  // namespace prove
