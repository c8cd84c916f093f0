#include "adapters/win32/access_list.h"

#include <aclapi.h>
#include <sddl.h>

#include <vector>

#include "adapters/win32/win32_failure.h"
#include "adapters/win32/win32_handle.h"

namespace orv {
namespace {

/// The identity of the user of this process, as the system stores it.
class ThisUser {
public:
    ThisUser() {
        HANDLE opened = nullptr;
        if (::OpenProcessToken(::GetCurrentProcess(), TOKEN_QUERY, &opened) == 0) {
            raiseLastError();
        }
        const Win32Handle token(opened);
        DWORD size = 0;
        ::GetTokenInformation(token.get(), TokenUser, nullptr, 0, &size);
        bytes_.resize(size);
        if (::GetTokenInformation(token.get(), TokenUser, bytes_.data(), size, &size) == 0) {
            raiseLastError();
        }
    }
    PSID id() { return reinterpret_cast<TOKEN_USER*>(bytes_.data())->User.Sid; }
    std::wstring text() {
        wchar_t* text = nullptr;
        if (::ConvertSidToStringSidW(id(), &text) == 0) {
            raiseLastError();
        }
        const std::wstring copy = text;
        ::LocalFree(text);
        return copy;
    }

private:
    std::vector<unsigned char> bytes_;
};

/// Makes entries that were inherited the file's own, because a protected list has no inherited ones.
void makeOwn(PACL list) {
    void* entry = nullptr;
    for (DWORD place = 0; list != nullptr && ::GetAce(list, place, &entry) != 0; ++place) {
        static_cast<ACE_HEADER*>(entry)->AceFlags &= static_cast<BYTE>(~INHERITED_ACE);
    }
}

DWORD setList(std::wstring path, PACL list, DWORD protection) {
    return ::SetNamedSecurityInfoW(path.data(), SE_FILE_OBJECT, DACL_SECURITY_INFORMATION | protection, nullptr,
                                   nullptr, list, nullptr);
}

}  // namespace

/// "P" keeps out the entries of the folder above. Both entries also apply to files created inside.
PrivateAccess::PrivateAccess() {
    const std::wstring list = L"D:P(A;OICI;FA;;;" + ThisUser().text() + L")(A;OICI;FA;;;SY)";
    attributes_.nLength = sizeof attributes_;
    if (::ConvertStringSecurityDescriptorToSecurityDescriptorW(list.c_str(), SDDL_REVISION_1,
                                                               &attributes_.lpSecurityDescriptor, nullptr) == 0) {
        raiseLastError();
    }
}

PrivateAccess::~PrivateAccess() { ::LocalFree(attributes_.lpSecurityDescriptor); }

bool isOwnedByThisUser(HANDLE opened) {
    PSID owner = nullptr;
    PSECURITY_DESCRIPTOR descriptor = nullptr;
    if (::GetSecurityInfo(opened, SE_FILE_OBJECT, OWNER_SECURITY_INFORMATION, &owner, nullptr, nullptr, nullptr,
                          &descriptor) != ERROR_SUCCESS) {
        return false;
    }
    const bool isOwn = owner != nullptr && ::EqualSid(owner, ThisUser().id()) != 0;
    ::LocalFree(descriptor);
    return isOwn;
}

bool copyAccess(const std::wstring& from, const std::wstring& to) {
    PACL list = nullptr;
    PSECURITY_DESCRIPTOR descriptor = nullptr;
    DWORD error = ::GetNamedSecurityInfoW(from.c_str(), SE_FILE_OBJECT, DACL_SECURITY_INFORMATION, nullptr, nullptr,
                                          &list, nullptr, &descriptor);
    if (error == ERROR_SUCCESS) {
        makeOwn(list);
        error = setList(to, list, PROTECTED_DACL_SECURITY_INFORMATION);
    }
    ::LocalFree(descriptor);
    ::SetLastError(error);
    return error == ERROR_SUCCESS;
}

bool inheritAccess(const std::wstring& file) {
    ACL none{};
    ::InitializeAcl(&none, sizeof none, ACL_REVISION);
    const DWORD error = setList(file, &none, UNPROTECTED_DACL_SECURITY_INFORMATION);
    ::SetLastError(error);
    return error == ERROR_SUCCESS;
}

bool makePrivate(HANDLE opened) {
    PrivateAccess access;
    BOOL present = FALSE;
    BOOL defaulted = FALSE;
    PACL list = nullptr;
    return ::GetSecurityDescriptorDacl(access.attributes()->lpSecurityDescriptor, &present, &list, &defaulted) != 0 &&
           ::SetSecurityInfo(opened, SE_FILE_OBJECT, DACL_SECURITY_INFORMATION | PROTECTED_DACL_SECURITY_INFORMATION,
                             nullptr, nullptr, list, nullptr) == ERROR_SUCCESS;
}

}  // namespace orv
