#include "config/cls_multi_com.h"

#include "config/built_in_hosts.h"
#include "support/settings_test.h"

namespace orv {
namespace {

using Property = std::string (cls_Multi_Com::*)() const;

class ClsMultiCom : public SettingsTest {
protected:
    static constexpr const char* kOfficeIni = "S:\\SHARED\\system.ini";

    ClsMultiCom() { set("PATH", "SYS", "S:\\SHARED"); }
};

struct Row {
    Property property;
    const char* file;
    const char* key;
    std::string present;
    std::string ifEmpty;
    std::string onFailure;
};

TEST_F(ClsMultiCom, PresentEmptyAndUnreadable) {
    const std::string host(kImageHost);
    const std::string url(kImageUploadUrl);
    const std::vector<Row> rows{
        {&cls_Multi_Com::ORV_IMAGE_URL, kOfficeIni, "ORVIMG", "12", host, host},
        {&cls_Multi_Com::ORV_IMAGE_HTTP_URL, kOfficeIni, "ORVIMG_HTTP", "12/", url, host},
        {&cls_Multi_Com::ORV_IMAGE_TRANSFER_TYPE, kOfficeIni, "TRANSFERTYPE", "12", "FTP", "FTP"},
        {&cls_Multi_Com::ORV_FtpOverwrite, kIni, "FTPOVERWRITE", "12", "True", ""},
    };
    std::string expected;
    for (const Row& row : rows) {
        EXPECT_EQ((multiCom().*row.property)(), row.ifEmpty) << row.key;
        profiles.set(row.file, "NET", row.key, "12");
        EXPECT_EQ((multiCom().*row.property)(), row.present) << row.key;
        EXPECT_EQ(log(), expected) << row.key;
        profiles.refuse("NET", row.key, Failure::DeviceIo);
        EXPECT_EQ((multiCom().*row.property)(), row.onFailure) << row.key;
        expected += record("0", "");
        EXPECT_EQ(log(), expected) << row.key;
    }
}

}  // namespace
}  // namespace orv
