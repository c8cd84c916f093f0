#pragma once

#include <utility>

#include "adapters/win32/windows_api.h"

namespace orv {

/// An open handle, closed by the destructor. Null for none; INVALID_HANDLE_VALUE counts as none too.
class Win32Handle {
public:
    explicit Win32Handle(HANDLE handle = nullptr) : handle_(handle == INVALID_HANDLE_VALUE ? nullptr : handle) {}
    Win32Handle(Win32Handle&& other) noexcept : handle_(other.release()) {}
    Win32Handle& operator=(Win32Handle&& other) noexcept {
        std::swap(handle_, other.handle_);
        return *this;
    }
    Win32Handle(const Win32Handle&) = delete;
    Win32Handle& operator=(const Win32Handle&) = delete;
    ~Win32Handle() {
        if (handle_ != nullptr) {
            ::CloseHandle(handle_);
        }
    }

    HANDLE get() const { return handle_; }
    /// The caller closes it.
    HANDLE release() { return std::exchange(handle_, nullptr); }
    explicit operator bool() const { return handle_ != nullptr; }

private:
    HANDLE handle_;
};

}  // namespace orv
