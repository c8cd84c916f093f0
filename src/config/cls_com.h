#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>

#include "platform/scope.h"

namespace orv {

/// The install's folders, programs, data files and settings, one property each. The members keep the order of the
/// class's interface, and the line of each member names its setting.
///
/// Each call reads "system.ini" again; only the path of that file is kept. A property never throws and never checks
/// whether its file exists. A property that fails writes a log record and returns "" ("0" for the three picture
/// limits). With an empty folder a property returns the bare file name.
class cls_Com : NonCopyable {
public:
    cls_Com() = default;
    ~cls_Com() = default;

    std::string MdbOrvEstateDB() const { return MdbFolder() + "ORVESTATE.MDB"; }
    std::string MdbOrvReplaceDB() const { return MdbFolder() + "ORVREPLACE.MDB"; }
    /// `hive` is the decimal text of its handle. On false the pair names the operation that failed.
    [[nodiscard]] bool P_GetRegQueryString(const std::string& subKey, const std::string& valueName,
                                           const std::string& hive, std::string& value) const;
    /// Creates the key if it is missing. `valueType` is the registry's type code; 4 is a 32-bit number.
    [[nodiscard]] bool P_SetRegQueryString(const std::string& subKey, const std::string& valueName,
                                           const std::string& hive, const std::string& value,
                                           std::int32_t valueType) const;
    std::string SeverSysPath() const { return folder("SYS"); }
    std::string BinFolder() const { return folder("BIN"); }
    std::string ORV_PassiveMode() const { return orIfEmpty("NET", "PASSIVE", "True"); }
    std::string BinTmpFolder() const { return folder("BINTMP"); }
    std::string BinDatFolder() const { return folder("BINDAT"); }
    std::string BinImgFolder() const { return folder("BINIMG"); }
    std::string BkupFolder() const { return folder("BKUP"); }
    std::string HlpFolder() const { return folder("HLP"); }
    std::string DwlFolder() const { return folder("DWL"); }
    std::string ImgFolder() const { return folder("IMG"); }
    /// Returns the folder of picture slot `index`. Slots count from 0, folders from 1.
    std::string ImgNoFolder(std::int16_t index) const { return ImgFolder() + std::to_string(index + 1) + "\\"; }
    std::string LogFolder() const { return folder("LOG"); }
    std::string LogErrFolder() const { return folder("LOGERR"); }
    std::string LogRasFolder() const { return folder("LOGRAS"); }
    std::string LogSndFolder() const { return folder("LOGSND"); }
    std::string LogRcvFolder() const { return folder("LOGRCV"); }
    std::string LogDWlFolder() const { return folder("LOGDWL"); }
    std::string LogInstFolder() const { return folder("LOGINST"); }
    std::string MdbFolder() const { return folder("MDB"); }
    std::string SysFolder() const { return folder("SYS"); }
    std::string TmpFolder() const { return folder("TMP"); }
    std::string InfFolder() const { return folder("INF"); }

    std::string BinInfoExe() const { return BinFolder() + "KELT_INFO.EXE"; }
    std::string BinDataConvert() const { return BinFolder() + "KeltDataConvert.exe"; }
    std::string BinDataConvert2() const { return BinFolder() + "KeltDataConvert2.exe"; }
    std::string BinAddExe() const { return BinFolder() + "KELT_ADD.EXE"; }
    std::string BinLineExe() const { return BinFolder() + "KELT_LINE.EXE"; }
    std::string BinMenuExe() const { return BinFolder() + "KELT_MENU.EXE"; }
    std::string BinOwnerExe() const { return BinFolder() + "KELT_OWNER.EXE"; }
    std::string BinPaccorExe() const { return BinFolder() + "KELT_PACCOR.EXE"; }
    std::string BinPacdisExe() const { return BinFolder() + "KELT_PACDIS.EXE"; }
    std::string BinRhExe() const { return BinFolder() + "KELT_RH.EXE"; }
    std::string BinRhprtdExe() const { return BinFolder() + "KELT_RHPRT.EXE"; }
    std::string BinRjExe() const { return BinFolder() + "KELT_RJ.EXE"; }
    std::string BinRjprtExe() const { return BinFolder() + "KELT_RJPRT.EXE"; }
    std::string BinRlExe() const { return BinFolder() + "KELT_RL.EXE"; }
    std::string BinRpExe() const { return BinFolder() + "KELT_RP.EXE"; }
    std::string BinShExe() const { return BinFolder() + "KELT_SH.EXE"; }
    std::string BinShprtdExe() const { return BinFolder() + "KELT_SHPRT.EXE"; }
    std::string BinSlExe() const { return BinFolder() + "KELT_SL.EXE"; }
    std::string BinSlprtExe() const { return BinFolder() + "KELT_SLPRT.EXE"; }
    std::string BinSsExe() const { return BinFolder() + "KELT_SS.EXE"; }
    std::string BinViewExe() const { return BinFolder() + "KELT_VIEW.EXE"; }
    std::string BinSsprtExe() const { return BinFolder() + "KELT_SSPRT.EXE"; }
    std::string BinStartExe() const { return BinFolder() + "KELT_START.EXE"; }
    std::string BinUserExe() const { return BinFolder() + "KELT_USER.EXE"; }
    std::string BinUtilyExe() const { return BinFolder() + "KELT_UTILY.EXE"; }
    std::string BinSndExe() const { return BinFolder() + "KELT_SND.EXE"; }
    std::string BinAllSndExe() const { return BinFolder() + "KELT_ALLSND.EXE"; }
    std::string BinBkupExe() const { return BinFolder() + "KELTBACKUP.EXE"; }
    std::string BinDownloadExe() const { return BinFolder() + "KELTDOWNLOAD.EXE"; }

    std::string BkupFile() const { return BkupFolder() + "ZTBKUP.LZH"; }
    std::string HlpFile() const { return HlpFolder() + "help.hlp"; }
    std::string MdbOrvDB() const { return MdbFolder() + "Orv.MDB"; }
    std::string MdbAddressDB() const { return MdbFolder() + "ADDRESS.MDB"; }
    std::string MdbRailDB() const { return MdbFolder() + "RAIL.MDB"; }
    std::string SysBknoIni() const { return SysFolder() + "BKNO.INI"; }
    /// Returns the full path of "system.ini".
    std::string SysSystemIni() const;
    std::string SysContCsv() const { return SysFolder() + "CONT.CSV"; }
    /// Returns the path of the terminals' file, in the folder of "system.ini" and with that folder in capitals.
    std::string SysKcount() const;
    /// Derived from the program's own folder, so that messages can be shown when no setting can be read.
    std::string SysMsgTbl() const;
    std::string TmpWorkImgFile() const { return TmpFolder() + "WorkImg"; }
    std::string TmpWorkImodeImgFile() const { return TmpFolder() + "WorkImg_i"; }
    /// Returns the working file of picture slot `index`. Slots count from 0, files from 1.
    std::string TmpNoTmpFile(std::int16_t index) const { return TmpFolder() + "TmpImg_" + std::to_string(index + 1); }
    std::string TmpImodeFile() const { return TmpFolder() + "TmpImg_i"; }
    std::string TmpWorkRom() const { return TmpFolder() + "WorkRom.rom"; }
    std::string TmpRom() const { return TmpFolder() + "TmpRom.rom"; }
    std::string LogErrFile() const { return LogErrFolder() + today() + "_err.log"; }
    std::string LogSndFile() const { return LogSndFolder() + today() + "_snd.log"; }
    /// The only log with a fixed name, and therefore the only one that rotates.
    std::string LogRasFile() const { return LogRasFolder() + "ras.log"; }
    std::string LogRcvFile() const { return LogRcvFolder() + today() + "_rcv.log"; }
    std::string LogDwlFile() const { return LogDWlFolder() + today() + "_dwl.log"; }
    std::string InfFile() const { return InfFolder() + "Information.html"; }
    std::string AdvFile() const { return InfFolder() + "Advertisement.html"; }
    std::string HisFile() const { return InfFolder() + "History.html"; }

    std::string IniImgW() const { return asRead("IMG", "LONG_W", "0"); }
    std::string IniImgH() const { return asRead("IMG", "LONG_H", "0"); }
    std::string IniImgSize() const { return asRead("IMG", "MAXSIZE", "0"); }
    std::string IniCSV() const { return withBackslash("UTILTY", "CSV"); }
    std::string IniGetImg() const { return withBackslash("UTILTY", "GET_IMG"); }
    std::string IniMinorVer() const;
    std::string ORV_URL() const { return asRead("NET", "URL"); }
    std::string ORV_CusSendService() const { return asRead("NET", "CUSSENDSERVICE"); }
    std::string ORV_SendCus() const { return asRead("NET", "SENDCUS"); }
    std::string ORV_SendService() const { return asRead("NET", "SENDSERVICE"); }
    std::string ORV_Send() const { return asRead("NET", "SEND"); }
    std::string ORV_ReceiveService() const { return asRead("NET", "RECEIVESERVICE"); }
    std::string ORV_Receive() const { return asRead("NET", "RECEIVE"); }
    std::string ORV_TimeOut() const { return asRead("NET", "TIMEOUT"); }
    /// Returns the command line that starts the caller `prefix`.
    std::string ORV_STARTPARA(const std::string& prefix) const { return asRead("UTILTY", prefix + "STARTPARA"); }
    std::string ORV_FtpTimeOut() const { return orIfEmpty("NET", "FTPTIMEOUT", "60000"); }
    std::string ORV_GifImgMode() const { return orIfEmpty("IMG", "GIFIMGMODE", "False"); }
    /// Empty on a computer that is not a client of the office's network.
    std::string ORV_LANTYPE() const;
    /// One more than the setting, because the first attempt counts.
    std::string ORV_RetryCount() const;
    std::string ORV_Interval() const { return asRead("NET", "INTERVAL"); }
    std::string ORV_NextInterval() const { return asRead("NET", "NEXTINTERVAL"); }
    std::string ORV_UseProxy() const { return asRead("NET", "USEPROXY"); }
    std::string BinBase64Exe() const { return BinFolder() + "Base64.EXE"; }
    std::string TerminalNo() const { return ofTerminal("PCNO"); }
    std::string TerminalName() const { return ofTerminal("PCNAME"); }
    std::string VimblFolder() const { return withBackslash("VIMBL", "VimblDir"); }
    std::string VimblChirasiRoot() const { return withBackslash("VIMBL", "ChirasiDir"); }
    std::string VimblMnuExe() const { return vimblProgram("MenuExeFile"); }
    std::string VimblMnuExeStartPara() const { return vimblArgument("MenuStartPara"); }
    std::string VimblMkRmExe() const { return vimblProgram("MakeRomExeFile"); }
    std::string VimblMkRmExeStartPara() const { return vimblArgument("MakeRomStartPara"); }
    /// Returns the leaflet folder for a kind of property, or the root for an unknown kind. `code` is "RH", "RJ", "SL",
    /// "SHM", "SHR" and so on.
    std::string VimblChirasiDir(const std::string& code) const;
    std::string MinorVer() const;
    /// Returns the install folder from the registry, or else the folder of the running program.
    std::string P_GetInstallFolderPath() const;
    std::string BinSaftyPriceExe() const { return BinFolder() + "KELT_SAFTYPRICE.exe"; }

private:
    using Treatment = std::function<std::string(const std::string&)>;

    [[nodiscard]] bool P_ResolveIniPath(std::string& path) const;
    std::int32_t fOpenRegSubKey(std::int32_t hive, const std::string& subKey, std::int32_t access) const;

    /// Returns a value of "system.ini", or nothing if it cannot be read.
    std::optional<std::string> value(const std::string& section, const std::string& key) const;

    std::string asRead(const std::string& section, const std::string& key, const std::string& onFailure = "") const;
    std::string treated(const std::string& section, const std::string& key, const Treatment& treatment) const;
    std::string orIfEmpty(const std::string& section, const std::string& key, const std::string& fallback) const;
    std::string withBackslash(const std::string& section, const std::string& key) const;
    std::string folder(const std::string& key) const { return withBackslash("PATH", key); }
    std::string ofTerminal(const std::string& key) const;
    std::string vimblProgram(const std::string& key) const;
    std::string vimblArgument(const std::string& key) const;
    static std::string today();

    mutable std::string systemIni_;
};

}  // namespace orv
