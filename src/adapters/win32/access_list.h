#pragma once

#include <string>

#include "adapters/win32/windows_api.h"
#include "platform/scope.h"

namespace orv {

/// The access list of a new file or folder that only this user, and the system itself, can open.
class PrivateAccess : NonCopyable {
public:
    /// Throws if the system does not give this user's identity.
    PrivateAccess();
    ~PrivateAccess();

    SECURITY_ATTRIBUTES* attributes() { return &attributes_; }

private:
    SECURITY_ATTRIBUTES attributes_{};
};

/// True if the file or folder belongs to this user. False if it cannot be determined.
bool isOwnedByThisUser(HANDLE opened);

/// Replaces the access list of a file by that of another file. The folder of the file then changes it no more. False on
/// failure; the thread's last error is the reason.
bool copyAccess(const std::wstring& from, const std::wstring& to);

/// Replaces the access list of a file by the one that its folder passes on, now and after each later change of the
/// folder's list. False on failure; the thread's last error is the reason.
bool inheritAccess(const std::wstring& file);

/// Replaces the access list of an open folder, opened with WRITE_DAC, by that of PrivateAccess.
bool makePrivate(HANDLE opened);

}  // namespace orv
