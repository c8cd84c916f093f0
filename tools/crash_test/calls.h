#pragma once

#include <sys/types.h>

#include <string>
#include <vector>

namespace crash_test {

/// How a call identifies its object.
enum class Named { ByPath, ByDescriptor, ByPollList, ByDomain };

/// The errno value with which a call fails instead of being done. For a call that waits, ETIMEDOUT means that nothing
/// has arrived.
using Answer = int;

/// A call to the kernel that can access a file or a connection.
struct CallKind {
    long number;
    const char* name;
    Named named;
    int place;  // of the argument that identifies the object
    std::vector<Answer> answers;
    bool isWrite = false;
    bool isFlush = false;
    bool isTransfer = false;
};

std::vector<long> knownCalls();
std::vector<long> flushingCalls();

/// Returns null for every other call.
const CallKind* findKind(long number);

bool canAnswer(const CallKind& kind, Answer answer);

/// Returns the object of a stopped process's call: a path, or "socket". Returns "" for any other object.
std::string readObject(const CallKind& kind, pid_t process, const unsigned long long* arguments);

}  // namespace crash_test
