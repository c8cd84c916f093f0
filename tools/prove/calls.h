#pragma once

#include <sys/types.h>

#include <string>
#include <vector>

namespace prove {

/// Where a call names what it works on.
enum class Named { ByPath, ByDescriptor, ByPollList, ByDomain };

/// The failure that a call ends in which is not done, as <errno.h> has it. To one that waits, ETIMEDOUT means that
/// nothing has come.
using Answer = int;

/// A call to the kernel that can touch a file or a wire.
struct CallKind {
    long number;
    const char* name;
    Named named;
    int place;  // of the argument that names
    std::vector<Answer> answers;
    bool isWrite = false;
    bool isFlush = false;
    bool isOnWire = false;
};

std::vector<long> knownCalls();
std::vector<long> flushingCalls();

/// Null for every other call.
const CallKind* kindOf(long number);

bool canAnswer(const CallKind& kind, Answer answer);

/// What a call of that stopped process works on: a path, or "socket". Empty where it is neither.
std::string objectOf(const CallKind& kind, pid_t process, const unsigned long long* arguments);

}  // namespace prove
