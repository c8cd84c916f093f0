#include "core/flow/environment_probe.h"

#include <array>

#include "config/settings.h"
#include "core/record/globals.h"
#include "images/file_size_text.h"
#include "logging/trap.h"
#include "logging/write_log.h"
#include "platform/machine/machine_facts.h"
#include "platform/machine/registry.h"
#include "platform/services.h"
#include "platform/suite/sys_info_service.h"
#include "validation/text/conversions.h"
#include "validation/text/text_helpers.h"

namespace orv {
namespace {

using R = CompanyRecord;

constexpr std::int32_t kDriveLength = 3;

SysInfoService& sysInfo() { return *services().sysInfo; }

void logSysError(const std::string& note = {}) {
    const FailureRecord failure = sysInfo().SysError();
    logError(failure.code, failure.text + note);
}

/// Stores a measured text in the field, or logs why there is none.
void storeResult(TextField field, bool ok, const std::string& text, const std::string& note = {}) {
    tCustomerInfo.*field = ok ? text : "";
    if (!ok) {
        logSysError(note);
    }
}

void probeOperatingSystem() {
    constexpr std::array kParts{&R::OS_VER, &R::OS_MAJOR_VER, &R::OS_MINOR_VER, &R::OS_BUILD_VER, &R::CSD_VER};
    std::array<std::string, kParts.size()> facts;
    bool ok = false;
    sysInfo().SysGetOsInfo(facts, ok);
    for (std::size_t i = 0; i < kParts.size(); ++i) {
        tCustomerInfo.*kParts[i] = ok ? facts[i] : "";
    }
    if (!ok) {
        logSysError();
    }
}

/// The setting reports a failure through the pair, which must not change here.
void probeConnectionType() {
    tCustomerInfo.NET_TYPE.clear();
    if (!PF_GetProFile(com().SysSystemIni(), "NET", "TYPE", tCustomerInfo.NET_TYPE)) {
        logPair();
        clearPair();
    }
}

void probeIpAddress() {
    std::string address;
    bool ok = false;
    sysInfo().SysGetIpAddress(address, ok);
    storeResult(&R::IP_ADDRESS, ok, address);
}

void probeRegistryText(TextField field, const RegistryValue& wanted, const char* note) {
    std::string value;
    bool ok = false;
    sysInfo().SysGetRegString(wanted.key, wanted.name, std::to_string(wanted.hive.handle), value, ok);
    storeResult(field, ok, value, note);
}

void probeInstallFolder() { probeRegistryText(&R::INS_ORV_PATH, kInstallFolder, "(ｲﾝｽﾄｰﾙﾌｫﾙﾀﾞｰ)"); }

void probeDiskSpace(TextField field, std::string drive) {
    std::string first;
    std::string second;
    bool ok = false;
    sysInfo().SysGetDiskSpace(drive, first, second, ok);
    const auto size = [](const std::string& bytes) { return PF_GetFileSizeString(toNumber(bytes)); };
    storeResult(field, ok, ok ? drive + " " + size(first) + "/" + size(second) : std::string());
}

void probeInstallDrive() { probeDiskSpace(&R::INS_HD_CAP, PF_LeftB(com().SysSystemIni(), kDriveLength)); }

void probeSystemDrive() { probeDiskSpace(&R::SYS_HD_CAP, PF_LeftB(PF_GetWindowsPath(), kDriveLength)); }

void probeMemory() {
    std::string megabytes;
    bool ok = false;
    sysInfo().SysGetMemory(megabytes, ok);
    storeResult(&R::MEMORY, ok, megabytes + "MB");
}

void probeBrowser() { probeRegistryText(&R::IE_VER, kBrowserVersion, "(IEバージョン)"); }

void probeProxy() { probeRegistryText(&R::PROXY_INFO, kProxyServer, "(プロキシ設定)"); }

constexpr std::array kProbes{probeOperatingSystem, probeConnectionType, probeIpAddress,
                             probeInstallFolder,   probeInstallDrive,   probeSystemDrive,
                             probeMemory,          probeBrowser,        probeProxy};

}  // namespace

void probeEnvironment() {
    for (const auto probe : kProbes) {
        if (const auto failure = caught(probe)) {
            logError(failure->number(), failure->description());
        }
    }
}

std::string bas_Main_Companydata::PF_GetWindowsPath() {
    return P_AddBackslash(services().facts->GetWindowsDirectory());
}

}  // namespace orv
