#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "config/cls_com.h"
#include "platform/machine/transmit_table.h"
#include "platform/value.h"

namespace orv {

/// The database with the transmission profiles. Nothing in this program assigns it; who wants the loader does.
inline std::string gTransmitDatabase;
/// The loader's workspace, while a profile is being read.
inline std::unique_ptr<TransmitWorkspace> gTransmitWorkspace;

/// What concerns sending, on top of the settings that it is made with. The members stand in the order of the class's
/// interface. The three image settings come from the "system.ini" that the whole office shares, in the folder that
/// `SeverSysPath` names. A property never raises; one that fails writes a log record.
class cls_Multi_Com {
public:
    explicit cls_Multi_Com(const cls_Com& settings) : com_(settings) {}
    cls_Multi_Com(const cls_Multi_Com&) = delete;
    cls_Multi_Com& operator=(const cls_Multi_Com&) = delete;
    ~cls_Multi_Com() = default;

    /// The host of the image server.
    std::string ORV_IMAGE_URL() const;
    /// The base of an upload's URL, ending in "/". After a failure it is a bare host on purpose: nothing can be sent.
    std::string ORV_IMAGE_HTTP_URL() const;
    /// "FTP", also where none is set, or another way of transfer.
    std::string ORV_IMAGE_TRANSFER_TYPE() const;
    std::string BinBuildingSearchExe() const { return com_.BinFolder() + "KELT_BS_RH.EXE"; }
    /// A place kept free on the interface: nothing happens, the value is empty.
    Value UserDataGet(const Value& key) const;
    /// Reads the profile of the two keys into `tTransmitInfo`; the value is always empty. A failure is raised, and the
    /// record then stays as it was.
    Value Transmit_Envion_DataSet(const Value& unused, std::int16_t key1, const std::string& key2) const;
    std::string ORV_FtpOverwrite() const;
    /// `path` with a trailing "/", an empty one as it is.
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
