#pragma once

#include <exception>
#include <string>
#include <string_view>

namespace orv {

/// The numbers of the run-time failures that the system itself distinguishes. The operator sees the description, the
/// log the number.
enum class Failure : int {
    InvalidCall = 5,
    Overflow = 6,
    OutOfMemory = 7,
    SubscriptOutOfRange = 9,
    TypeMismatch = 13,
    Internal = 51,
    BadFileName = 52,
    FileNotFound = 53,
    FileAlreadyOpen = 55,
    DeviceIo = 57,
    FileExists = 58,
    DiskFull = 61,
    PermissionDenied = 70,
    PathFileAccess = 75,
    PathNotFound = 76,
    ObjectNotSet = 91,
    InvalidNull = 94,
    InvalidPropertyValue = 380,
    TextNotInList = 383,
    ConnectionFailed = 24011,
    TimedOut = 24012,
    DialogCancelled = 20150,
};

/// Returns the Japanese text for `failure` that the operator reads. Never empty.
std::string_view describe(Failure failure);

/// The only exception of the system: a number and a description in the operator's language. Adapters convert every
/// failure of their library to it; nothing else crosses an interface.
class RunTimeError : public std::exception {
public:
    explicit RunTimeError(Failure failure);
    RunTimeError(Failure failure, std::string description);
    RunTimeError(int number, std::string description);

    int number() const noexcept { return number_; }
    const std::string& description() const noexcept { return description_; }
    const char* what() const noexcept override { return description_.c_str(); }

private:
    int number_;
    std::string description_;
};

}  // namespace orv
