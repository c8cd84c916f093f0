#pragma once

#include <unistd.h>

#include <utility>

#include "platform/scope.h"

namespace orv {

/// An open descriptor of the system, closed when it goes; -1 for none.
class Descriptor : NonCopyable {
public:
    explicit Descriptor(int number = -1) : number_(number) {}
    Descriptor(Descriptor&& other) noexcept : number_(std::exchange(other.number_, -1)) {}
    Descriptor& operator=(Descriptor&& other) noexcept {
        std::swap(number_, other.number_);
        return *this;
    }
    ~Descriptor() {
        if (number_ >= 0) {
            ::close(number_);
        }
    }

    /// Its owner is somebody else from now on.
    int release() { return std::exchange(number_, -1); }
    int number() const { return number_; }
    explicit operator bool() const { return number_ >= 0; }

private:
    int number_;
};

}  // namespace orv
