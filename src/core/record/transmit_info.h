#pragma once

#include <array>
#include <cstdint>
#include <string>

namespace orv {

/// One profile from the table `Transmit_Info`.
struct TransmitInfo {
    std::string DefinitionFileName;
    std::string DefinitionFileName2;
    std::string DefinitionFileName3;
    std::string OutPutFileName;
    std::string ImageFileSendPath;
    std::int16_t DefinitionFileNameMode = 0;
    std::int32_t DataMax = 0;
    std::int16_t ImageUpLoadFlg = 0;
    std::int16_t MakeMode = 0;
    std::string SendMode;
    std::string SiteAddress2;
    std::string GroupID;
    std::string LoginID;
    std::string Passwd;
    std::string HomeDir;
    std::int16_t HomeImageDirCheck = 0;
    std::string HomeImageDir;
    std::string HomeImageDir2;
    std::string HomeImageDir3;
    std::string HomeImageDir4;
    std::string HomeImageDir5;
    std::string HomeImageDir6;
    std::string HomeImageDir7;
    std::string HomeImageDir8;
    std::string HomeImageDir9;
    std::string HomeImageDir10;
    bool PassiveMode = false;
    std::int32_t FtpTimeOut = 0;
    bool FtpOverwrite = false;
    std::string AppendFilePath;
    std::int16_t OrvTransmitMode = 0;
    std::int16_t ImageFileNameFlg = 0;
    std::int16_t ImageGifFileFlg = 0;
    std::string CommandFilePath;
};

}  // namespace orv
