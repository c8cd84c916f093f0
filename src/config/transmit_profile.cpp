#include <array>
#include <string_view>
#include <variant>

#include "config/cls_multi_com.h"
#include "core/record/globals.h"
#include "platform/scope.h"
#include "platform/services.h"
#include "validation/text/conversions.h"

namespace orv {
namespace {

constexpr std::int32_t kEmbeddedEngine = 2;
constexpr std::int32_t kTable = 1;
constexpr const char* kConnect = ";pwd=stone2718";

using Text = std::string TransmitInfo::*;
using Short = std::int16_t TransmitInfo::*;
using Long = std::int32_t TransmitInfo::*;

/// `ifNull` is the number for a null column and for a missing profile. A text is then empty.
struct Column {
    std::string_view name;
    std::variant<Text, Short, Long> field;
    std::int16_t ifNull = 0;
    bool isWebPath = false;
};

using T = TransmitInfo;

constexpr Column webPath(std::string_view name, Text field) { return {name, field, 0, true}; }

constexpr std::array kColumns = std::to_array<Column>({
    {"DefinitionFileName", &T::DefinitionFileName},
    {"DefinitionFileName2", &T::DefinitionFileName2},
    {"DefinitionFileName3", &T::DefinitionFileName3},
    {"OutPutFileName", &T::OutPutFileName},
    {"ImageFileSendPath", &T::ImageFileSendPath},
    {"DefinitionFileNameMode", &T::DefinitionFileNameMode, 1},
    {"DataMax", &T::DataMax},
    {"ImageUpLoadFlg", &T::ImageUpLoadFlg},
    {"MakeMode", &T::MakeMode},
    {"SiteAddress2", &T::SiteAddress2},
    {"GroupID", &T::GroupID},
    {"LoginID", &T::LoginID},
    {"Passwd", &T::Passwd},
    webPath("HomeDir", &T::HomeDir),
    {"HomeImageDirCheck", &T::HomeImageDirCheck, 1},
    webPath("HomeImageDir", &T::HomeImageDir),
    webPath("HomeImageDir2", &T::HomeImageDir2),
    webPath("HomeImageDir3", &T::HomeImageDir3),
    webPath("HomeImageDir4", &T::HomeImageDir4),
    webPath("HomeImageDir5", &T::HomeImageDir5),
    webPath("HomeImageDir6", &T::HomeImageDir6),
    webPath("HomeImageDir7", &T::HomeImageDir7),
    webPath("HomeImageDir8", &T::HomeImageDir8),
    webPath("HomeImageDir9", &T::HomeImageDir9),
    webPath("HomeImageDir10", &T::HomeImageDir10),
    {"AppendFilePath", &T::AppendFilePath},
    {"OrvTransmitMode", &T::OrvTransmitMode},
    {"ImageFileNameFlg", &T::ImageFileNameFlg},
    {"ImageGifFileFlg", &T::ImageGifFileFlg},
    {"CommandFilePath", &T::CommandFilePath},
});

constexpr const char* kMakeFileOnly = "ﾌｧｲﾙ作成のみ";

/// Assigns one value to its field, according to the field's type.
struct Filler {
    const cls_Multi_Com& settings;
    const Column& column;
    const Value& value;
    TransmitInfo& info;

    double number() const { return value.isNull() ? column.ifNull : toNumber(toText(value)); }

    void operator()(Text field) const {
        const std::string text = value.isNull() ? std::string() : toText(value);
        info.*field = column.isWebPath ? settings.WebMakePath(text) : text;
    }
    void operator()(Short field) const { info.*field = toInteger(number()); }
    void operator()(Long field) const { info.*field = toLong(number()); }
};

std::string toSendMode(const Value& column) {
    switch (column.isNull() ? 0 : toLong(toText(column))) {
        case 0:
            return "FTP送信方式";
        case 2:
            return kMakeFileOnly;
        default:
            return "HTTP送信方式";
    }
}

/// `row` is null for a missing profile. Every column except the way of sending is then null.
TransmitInfo profileFrom(const TransmitRecordset* row, const cls_Com& com, const cls_Multi_Com& settings) {
    TransmitInfo info;
    for (const Column& column : kColumns) {
        const Value value = row == nullptr ? Value() : row->Fields(std::string(column.name));
        std::visit(Filler{settings, column, value, info}, column.field);
    }
    info.SendMode = row == nullptr ? kMakeFileOnly : toSendMode(row->Fields("SendMode"));
    info.PassiveMode = toBoolean(com.ORV_PassiveMode());
    info.FtpTimeOut = toLong(com.ORV_FtpTimeOut());
    info.FtpOverwrite = toBoolean(settings.ORV_FtpOverwrite());
    return info;
}

}  // namespace

Value cls_Multi_Com::Transmit_Envion_DataSet(const Value& /*unused*/, std::int16_t key1,
                                             const std::string& key2) const {
    UserDataGet(key1);
    gTransmitWorkspace = services().transmitEngine->CreateWorkspace("NewJetWorkspace", "admin", "", kEmbeddedEngine);
    const ScopeExit release([] { gTransmitWorkspace.reset(); });
    const auto database = gTransmitWorkspace->OpenDatabase(gTransmitDatabase, false, false, kConnect);
    const auto profiles = database->OpenRecordset("Transmit_Info", kTable);
    profiles->Index("PrimaryKey");
    profiles->Seek("=", {key1, key2});
    if (!profiles->Eof()) {
        tTransmitInfo = profileFrom(profiles->NoMatch() ? nullptr : profiles.get(), com_, *this);
    }
    profiles->Close();
    database->Close();
    gTransmitWorkspace->Close();
    return {};
}

}  // namespace orv
