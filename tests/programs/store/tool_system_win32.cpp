#include <zlib.h>

#include <array>
#include <cstdlib>

#include "adapters/win32/access_list.h"
#include "adapters/win32/held_place.h"
#include "adapters/win32/wide_text.h"
#include "adapters/win32/win32_handle.h"
#include "programs/store/tool_system.h"

// After windows.h.
#include <aclapi.h>
#include <sddl.h>

namespace orv {
namespace {

constexpr const wchar_t* kProxyKey = L"SOFTWARE\\Microsoft\\Windows\\CurrentVersion\\Internet Settings";

}  // namespace

int runTool(const std::string& folder, const std::string& arguments, const std::string& before) {
    const std::string command =
        "cd /d \"" + folder + "\" && " + before + "\"" STORE_TOOL "\" " + arguments + " <in >out 2>err";
    const int status = ::_wsystem(toWide(command).c_str());
    return status >= 0 && status < 256 ? status : -1;
}

Unreadable makeUnreadable(const std::string& path) {
    constexpr DWORD kSharedWithNobody = 0;
    const HANDLE file = ::CreateFileW(toWide(path).c_str(), GENERIC_READ, kSharedWithNobody, nullptr, OPEN_EXISTING,
                                      FILE_ATTRIBUTE_NORMAL, nullptr);
    return {"", std::make_shared<Win32Handle>(file)};
}

/// To a list that is set with SetSecurityInfo, wine adds the entries of the folder above even if it is protected.
void closeToOthers(const std::string& path) {
    PrivateAccess access;
    ::SetFileSecurityW(toWide(path).c_str(), DACL_SECURITY_INFORMATION, access.attributes()->lpSecurityDescriptor);
}

void openToAllUsers(const std::string& path) {
    PSECURITY_DESCRIPTOR descriptor = nullptr;
    ::ConvertStringSecurityDescriptorToSecurityDescriptorW(L"D:P(A;OICI;FA;;;WD)", SDDL_REVISION_1, &descriptor,
                                                           nullptr);
    ::SetFileSecurityW(toWide(path).c_str(), DACL_SECURITY_INFORMATION, descriptor);
    ::LocalFree(descriptor);
}

bool isPrivate(const std::string& path) {
    PACL list = nullptr;
    PSECURITY_DESCRIPTOR descriptor = nullptr;
    ::GetNamedSecurityInfoW(toWide(path).c_str(), SE_FILE_OBJECT, DACL_SECURITY_INFORMATION, nullptr, nullptr, &list,
                            nullptr, &descriptor);
    const std::unique_ptr<void, decltype(&::LocalFree)> owner(descriptor, &::LocalFree);
    bool isOpen = list == nullptr;
    for (DWORD place = 0; list != nullptr && place < list->AceCount; ++place) {
        void* entry = nullptr;
        isOpen = isOpen || ::GetAce(list, place, &entry) == 0 ||
                 ::IsWellKnownSid(&static_cast<ACCESS_ALLOWED_ACE*>(entry)->SidStart, WinWorldSid) != 0;
    }
    return !isOpen;
}

const char* const kOffice = "srv\\C\\ORV";

std::shared_ptr<void> setProxy(const std::string&, const std::string& value) {
    const std::wstring text = toWide(value);
    ::RegSetKeyValueW(HKEY_CURRENT_USER, kProxyKey, L"ProxyServer", REG_SZ, text.c_str(),
                      static_cast<DWORD>((text.size() + 1) * sizeof(wchar_t)));
    return {nullptr, [](void*) { ::RegDeleteKeyValueW(HKEY_CURRENT_USER, kProxyKey, L"ProxyServer"); }};
}

/// Not every Windows has a program for it.
std::map<std::string, std::string> unpack(const std::string& folder, const std::string& archive) {
    std::map<std::string, std::string> files;
    std::array<char, 512> block{};
    const std::unique_ptr<gzFile_s, decltype(&gzclose)> opened(gzopen((folder + "\\" + archive).c_str(), "rb"),
                                                               gzclose);
    while (gzread(opened.get(), block.data(), block.size()) == 512 && block[0] != '\0') {
        std::string& text = files[block.data()];
        text.resize(std::stoul(block.data() + 124, nullptr, 8));
        gzread(opened.get(), text.data(), static_cast<unsigned>(text.size()));
        gzseek(opened.get(), static_cast<long>((512 - text.size() % 512) % 512), SEEK_CUR);
    }
    return files;
}

}  // namespace orv
