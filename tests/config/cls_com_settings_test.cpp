#include <array>
#include <map>

#include "support/settings_test.h"

namespace orv {
namespace {

using Property = std::string (cls_Com::*)() const;
using Settings = SettingsTest;

struct Row {
    Property property;
    const char* section;
    const char* key;
    const char* present;
    const char* ifEmpty;
    const char* onFailure = "";
};

/// A setting of each treatment. The value set is "12" throughout.
constexpr auto kSettings = std::to_array<Row>({
    {&cls_Com::IniImgW, "IMG", "LONG_W", "12", "", "0"},
    {&cls_Com::ORV_GifImgMode, "IMG", "GIFIMGMODE", "12", "False"},
    {&cls_Com::IniCSV, "UTILTY", "CSV", "12\\", ""},
    {&cls_Com::IniMinorVer, "VERSION", "MINOR", "12", ""},
    {&cls_Com::MinorVer, "VERSION", "MINOR", "12", ""},
    {&cls_Com::ORV_URL, "NET", "URL", "12", ""},
    {&cls_Com::ORV_SendCus, "NET", "SENDCUS", "12", ""},
    {&cls_Com::ORV_TimeOut, "NET", "TIMEOUT", "12", ""},
    {&cls_Com::ORV_PassiveMode, "NET", "PASSIVE", "12", "True"},
    {&cls_Com::ORV_FtpTimeOut, "NET", "FTPTIMEOUT", "12", "60000"},
    {&cls_Com::ORV_RetryCount, "NET", "RETRY", "13", "4"},
});

TEST_F(Settings, PresentEmptyAndUnreadable) {
    std::string expected;
    for (const Row& row : kSettings) {
        profiles.clear();
        EXPECT_EQ((com().*row.property)(), row.ifEmpty) << row.key;
        set(row.section, row.key, "12");
        EXPECT_EQ((com().*row.property)(), row.present) << row.key;
        EXPECT_EQ(log(), expected) << row.key;
        profiles.refuse(row.section, row.key, Failure::PermissionDenied);
        EXPECT_EQ((com().*row.property)(), row.onFailure) << row.key;
        expected += record("0", "");
        EXPECT_EQ(log(), expected) << row.key;
    }
}

TEST_F(Settings, OnlyAClientHasATypeOfNetwork) {
    struct Case {
        const char* himself;
        const char* type;
        const char* result;
    };
    for (const Case& row : {Case{"", "LANB", ""}, Case{"SERVER", "LANB", ""}, Case{"client", "LANB", ""},
                            Case{"CLIENT", "", "LANA"}, Case{"CLIENT", "LANB", "LANB"}}) {
        set("LAN", "HIMSELF", row.himself);
        set("LAN", "TYPE", row.type);
        EXPECT_EQ(com().ORV_LANTYPE(), row.result) << row.himself << row.type;
    }
    EXPECT_EQ(log(), "");
    profiles.refuse("LAN", "TYPE", Failure::DeviceIo);
    EXPECT_EQ(com().ORV_LANTYPE(), "");
    profiles.refuse("LAN", "HIMSELF", Failure::DeviceIo);
    EXPECT_EQ(com().ORV_LANTYPE(), "");
    EXPECT_EQ(log(), record("0", "") + record("0", ""));
}

}  // namespace
}  // namespace orv
