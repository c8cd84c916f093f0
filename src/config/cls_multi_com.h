#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "config/cls_com.h"
#include "platform/scope.h"
#include "platform/value.h"

namespace orv {

// Hosts of the suite's servers, used where "system.ini" names none. A build for an office replaces them with real
// hosts.

inline constexpr std::string_view kImageHost = "image.orv-suite.invalid";
inline constexpr std::string_view kImageUploadUrl = "http://upload.orv-suite.invalid/rereceive46/davroot/";

/// The settings for sending, in addition to those of `cls_Com`. The members keep the order of the class's interface.
/// The three image settings are read from the office's shared "system.ini", in the folder that `SeverSysPath` names. A
/// property never throws; one that fails writes a log record.
class cls_Multi_Com : NonCopyable {
public:
    explicit cls_Multi_Com(const cls_Com& settings) : com_(settings) {}
    ~cls_Multi_Com() = default;

    /// Returns the host of the image server.
    std::string ORV_IMAGE_URL() const;
    /// Returns the base of an upload's URL, with a trailing "/". After a failure this is a bare host, so that nothing
    /// is sent.
    std::string ORV_IMAGE_HTTP_URL() const;
    /// Returns the way of transfer, "FTP" if none is set.
    std::string ORV_IMAGE_TRANSFER_TYPE() const;
    std::string BinBuildingSearchExe() const { return com_.BinFolder() + "KELT_BS_RH.EXE"; }
    /// Reserved by the interface. Does nothing and returns an empty value.
    Value UserDataGet(const Value& key) const;
    /// Reads the profile of the two keys into `tTransmitInfo` and returns an empty value. Throws on failure and then
    /// leaves the record unchanged.
    Value Transmit_Envion_DataSet(const Value& unused, std::int16_t key1, const std::string& key2) const;
    std::string ORV_FtpOverwrite() const;
    /// Returns `path` with a trailing "/", or "" for an empty path.
    std::string WebMakePath(const std::string& path) const;
    std::string BinContentsExe() const { return com_.BinFolder() + "KELT_CONTENTS.EXE"; }
    std::string BinAdvantageInfoExe() const { return com_.BinFolder() + "KELT_ADVANTAGEINFO.EXE"; }
    std::string BinSendEnvExe() const { return com_.BinFolder() + "KELT_SENDENV.EXE"; }
    std::string BinTimeSendExe() const { return com_.BinFolder() + "KELT_TIMESEND.EXE"; }
    std::string BinDataImportExe() const { return com_.BinFolder() + "Kelt_DataImport.exe"; }

private:
    const cls_Com& com_;
};

}  // namespace orv
