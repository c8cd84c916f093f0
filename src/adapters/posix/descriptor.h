#pragma once

#include <unistd.h>

#include <utility>

#include "platform/scope.h"

namespace orv {

/// Owns an open file descriptor and closes it when destroyed. -1 means none.
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

    /// Gives up ownership. The caller must close the descriptor.
    int release() { return std::exchange(number_, -1); }
    int number() const { return number_; }
    explicit operator bool() const { return number_ >= 0; }

private:
    int number_;
};

}  // namespace orv
