#include "core/flow/company_load.h"

#include "support/fixture.h"

namespace orv {
namespace {

constexpr const char* kFill = "[ PF_SetCompanyDataStructureChng ] ";

class Load : public SystemTest {
protected:
    /// Expects the record to contain only the company's number and measured values.
    static void expectEmpty(const std::string& userId) {
        std::map<std::string_view, std::string> expected{{"USER_ID", userId},
                                                         {"SAME_CHECK", "1"},
                                                         {"DANTAI_FLG", std::string(16, '0')},
                                                         {"KOUTORI_FLG", std::string(16, '0')},
                                                         {"MANAGEMENT_TYPE_FLG", std::string(64, '0')},
                                                         {"BUSINESS_TYPE_FLG", std::string(64, '0')},
                                                         {"SERVICE_FLG", std::string(50, '0')}};
        for (const FieldInfo& field : kFields) {
            if (field.text != nullptr && field.source != Source::Probed) {
                EXPECT_EQ(tCustomerInfo.*field.text, expected[field.name]) << field.name;
            }
        }
        EXPECT_FALSE(tCustomerInfo.SEND_FLAG);
    }
    static Texts environment() {
        Texts all;
        for (const FieldInfo& field : kFields) {
            if (field.source == Source::Probed) all.push_back(tCustomerInfo.*field.text);
        }
        return all;
    }
};

TEST_F(Load, EveryColumnComesIntoItsField) {
    for (const FieldInfo& field : kFields) {
        const bool stored = field.source == Source::Stored && field.text != nullptr && field.name != "USER_ID";
        if (stored) {
            const std::string table = field.table == Table::Info ? "TBL_CUSTOMER_INFO" : "TBL_CUSTOMER_ADD";
            sql("update " + table + " set " + std::string(field.name) + " = '  v " + std::string(field.name) +
                "  ' where USER_ID = '000004601'");
        }
    }
    sql("update TBL_CUSTOMER_ADD set SEND_FLAG = TRUE, CPU = 'old', MEMORY = 'old', PHOTO_FILE1 = null, "
        "PHOTO_FILE2 = null where USER_ID = '000004601'");
    load();
    for (const FieldInfo& field : kFields) {
        const bool photo = field.name.starts_with("PHOTO_FILE");
        if (field.source == Source::Stored && field.text != nullptr && field.name != "USER_ID" && !photo) {
            EXPECT_EQ(tCustomerInfo.*field.text, "  v " + std::string(field.name)) << "blanks in front stay";
        }
    }
    EXPECT_EQ(tCustomerInfo.USER_ID, kCompany);
    EXPECT_TRUE(tCustomerInfo.SEND_FLAG);
    EXPECT_EQ(tCustomerInfo.CPU, "") << "never read";
    EXPECT_EQ(tCustomerInfo.MEMORY, "2048MB") << "measured, not read";
}

TEST_F(Load, NullsComeAsBlanksAndZeros) {
    sql("delete from TBL_CUSTOMER_INFO where USER_ID = '000004601'");
    sql("delete from TBL_CUSTOMER_ADD where USER_ID = '000004601'");
    sql("insert into TBL_CUSTOMER_INFO (USER_ID) values ('000004601')");
    sql("insert into TBL_CUSTOMER_ADD (USER_ID, SEND_FLAG) values ('000004601', FALSE)");
    load();
    expectEmpty(kCompany);
}

TEST_F(Load, TheAreaFollowsFromTheAddressWhereItIsMissing) {
    for (const auto& [area, address, result] :
         std::to_array<std::array<std::string, 3>>({{"''", "'13104022003'", "13104"},
                                                    {"NULL", "'131'", "131"},
                                                    {"'  '", "'13104022003'", "13104"},
                                                    {"'99999'", "'13104022003'", "99999"},
                                                    {"''", "'  '", ""},
                                                    {"''", "'１３１０４０２２'", "１３１０４"}})) {
        sql("update TBL_CUSTOMER_INFO set AREA_CODE = " + area + ", ADDRESS_CODE = " + address +
            " where USER_ID = '000004601'");
        load();
        EXPECT_EQ(tCustomerInfo.AREA_CODE, result) << area << address;
    }
}

TEST_F(Load, ThatEditionAlwaysBelongsToItsAssociation) {
    settings.set("VERSION", "MINOR", "3");
    for (const auto& [stored, flags] :
         std::to_array<std::array<std::string, 2>>({{"'1000000000000001'", "1001000000000001"},
                                                    {"NULL", "0001000000000000"},
                                                    {"'0'", "01"},
                                                    {"'101'", "1011"},
                                                    {"'１０１００'", "１０１1０"}})) {
        sql("update TBL_CUSTOMER_INFO set DANTAI_FLG = " + stored + " where USER_ID = '000004601'");
        load();
        EXPECT_EQ(tCustomerInfo.DANTAI_FLG, flags);
    }
    openStore();
    EXPECT_TRUE(PF_SetCompanyDataStructureChng(kMarker)) << "whatever the record holds of another company";
    EXPECT_EQ(tCustomerInfo.DANTAI_FLG, "0001000000000000");
    EXPECT_EQ(tCustomerInfo.MANAGEMENT_TYPE_FLG, std::string(64, '0'));
    closeStore();
}

TEST_F(Load, ANewCompanyHasNothingButItsMarkerItsZerosAndTheComputer) {
    for (const FieldInfo& field : kFields) {
        if (field.text != nullptr) tCustomerInfo.*field.text = "x";
    }
    tCustomerInfo.SEND_FLAG = true;
    EXPECT_TRUE(PF_SetCompanyDataStructureInis());
    EXPECT_EQ(tCustomerInfo.CSD_VER, "x") << "the one field that is not cleared";
    load(kMarker);
    expectEmpty(kMarker);
    EXPECT_EQ(tCustomerInfo.OS_VER, "OS名");
    EXPECT_EQ(locks(), Texts{"--------- DESK01"});
    EXPECT_EQ(everything().size(), 6u + 5u + 6u) << "nothing is written before the first save";
}

TEST_F(Load, PhotosGetWorkingCopies) {
    load();
    EXPECT_EQ(tCustomerInfo.PHOTO_FILE1, "C:\\ORV\\TMP\\TmpImg_1");
    EXPECT_EQ(tCustomerInfo.PHOTO_FILE2, "C:\\ORV\\TMP\\TmpImg_2");
    EXPECT_EQ(readBytes(tCustomerInfo.PHOTO_FILE2), readBytes("C:\\ORV\\IMG\\2\\000004601COS00000000_02.jpg"));
    files.remove("C:\\ORV\\IMG\\1\\000004601COS00000000_01.jpg");
    load();
    EXPECT_EQ(tCustomerInfo.PHOTO_FILE1, "") << "the stored file is gone";
    EXPECT_EQ(tCustomerInfo.PHOTO_FILE2, "C:\\ORV\\TMP\\TmpImg_2");
    EXPECT_EQ(log(), "");
}

TEST_F(Load, ACompanyThatIsNotThereOrNotWhole) {
    EXPECT_FALSE(PF_GetCompanyData("000009999"));
    EXPECT_EQ(gErrMsg + " " + gErrCode, "DBデータ取得にしっぱいしました。 ECOS5120");
    EXPECT_FALSE(PF_GetCompanyData("000004605"));
    EXPECT_EQ(gErrMsg + " " + gErrCode, std::string(kFill) + "値のない項目を値として使いました。 94");
    EXPECT_EQ(tCustomerInfo.COMPANY_NAME, "みずうみ見本住宅") << "the record is left as far as it got";
    sql("create table T as select * from TBL_CUSTOMER_ADD; drop table TBL_CUSTOMER_ADD; alter table T rename to "
        "TBL_CUSTOMER_ADD; insert into TBL_CUSTOMER_ADD select * from TBL_CUSTOMER_ADD where USER_ID = '000004601'");
    EXPECT_FALSE(PF_GetCompanyData(kCompany));
    EXPECT_EQ(gErrMsg + " " + gErrCode, "000004601がDBに存在しないか、\r\n複数存在します。 DBERR:02");
    EXPECT_EQ(locks(), Texts{});
}

TEST_F(Load, MeasuresInOrderAndAFailureLeavesABlankAndALogRecord) {
    load();
    EXPECT_EQ(environment(), (Texts{"OS名", "6", "1", "7601", "SP1", "LAN", "192.168.0.9", "C:\\ 12.5GB/74.5GB",
                                    "C:\\ 12.5GB/74.5GB", "C:\\ORV", "2048MB", "11.0", "proxy:8080"}));
    EXPECT_EQ(machine.asked,
              (Texts{"os", "ip", "-2147483646 SOFTWARE\\ZENTHA\\ORV InstallKey", "disk C:\\", "disk C:\\", "memory",
                     "-2147483646 SOFTWARE\\Microsoft\\Internet Explorer Version",
                     "-2147483647 SOFTWARE\\Microsoft\\Windows\\CurrentVersion\\Internet Settings ProxyServer"}));
    EXPECT_EQ(log(), "");
    const Texts measured = environment();
    struct Case {
        std::string refused, blank, note;
        int lines = 1;
    };
    // A "-" represents each missing value.
    for (const Case& c :
         {Case{"os", "-----........", ""}, Case{"ip", "......-......", ""},
          Case{"InstallKey", ".........-...", "(ｲﾝｽﾄｰﾙﾌｫﾙﾀﾞｰ)"}, Case{"disk C:\\", ".......--....", "", 2},
          Case{"memory", "..........-..", ""}, Case{"Version", "...........-.", "(IEバージョン)"},
          Case{"ProxyServer", "............-", "(プロキシ設定)"}}) {
        const std::string before = log();
        machine.refused = {c.refused};
        load();
        std::string lines;
        for (int i = 0; i < c.lines; ++i) lines += record("SYS:1", "測定の故障" + c.note);
        EXPECT_EQ(log(), before + lines) << c.refused;
        EXPECT_EQ(gErrMsg + gErrCode, "") << "the pair is not touched";
        for (std::size_t i = 0; i < measured.size(); ++i) {
            EXPECT_EQ(environment()[i], c.blank[i] == '-' ? "" : measured[i]) << c.refused << i;
        }
    }
}

TEST_F(Load, ASettingThatCannotBeReadCostsNoPhotoAndNoField) {
    settings.refuse("PATH", "IMG");
    EXPECT_FALSE(PF_GetCompanyData(kCompany)) << "instead of a company without its photos";
    EXPECT_EQ(gErrCode, "75");
    EXPECT_EQ(locks(), std::vector<std::string>{});
    settings.set("PATH", "IMG", "C:\\ORV\\IMG");
    for (const std::string code : {"75", "53"}) {
        code == "75" ? settings.refuse("PATH", "HLP") : settings.set("PATH", "HLP", "");
        start();
        EXPECT_EQ(shownIds().size(), 1u);
        EXPECT_FALSE(screen().ready);
        settings.set("PATH", "HLP", "C:\\ORV\\HLP");
        const std::vector<std::string> before = everything();
        save();
        EXPECT_EQ(messages.shown.back().args.at(0), Value(code));
        EXPECT_EQ(everything(), before);
        leave();
        messages.shown.clear();
    }
}

}  // namespace
}  // namespace orv
