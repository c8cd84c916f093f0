#include "binding/page_to_record.h"
#include "binding/record_to_page.h"
#include "support/fixture.h"

namespace orv {
namespace {

class Binding : public SystemTest {
protected:
    /// Starts with a company that has a value in every field of a page, two different addresses and an enabled licence.
    void startFull(int page = 0) {
        sql("update TBL_CUSTOMER_INFO set SAME_CHECK = '0', PC_OFFICE_NAME = '部署', PC_POST_CODE = '220-0011', "
            "PC_ADDRESS_CODE = '14103010001', PC_ADDRESS = '横浜市', PC_ADDRESS_NUMBER = '1', PC_ADDRESS_GOU = '2', "
            "PC_TANTO_NAME = '次郎', PC_TEL_NO1 = '045-000-0203', PC_TEL_NO2 = '0120-000-203', PC_FAX_NO = "
            "'045-000-0204', PC_MAIL_ADDRESS = 'a@b.c', BUS_ROUTE = '路線', BUSSTOP = '停', BUS_MINUTES = '12', "
            "TEIHO_MINUTES = '2', CAR_TARGET = '目印', CAR_MINUTES = '10', CAR_DISTANCE = '4.5', DANTAI_FLG = "
            "'1110011000000000', OTHER_DANTAI_NAME = '家主会', KOUTORI_FLG = '1111111110000000' where USER_ID = "
            "'000004601'");
        startOn(page);
    }
    /// Returns the changed fields with their new values.
    static std::map<std::string, std::string> differences(const CompanyRecord& before, const CompanyRecord& after) {
        std::map<std::string, std::string> found;
        for (const FieldInfo& field : kFields) {
            if (field.text != nullptr && before.*field.text != after.*field.text) {
                found[std::string(field.name)] = after.*field.text;
            }
        }
        return found;
    }
};

TEST_F(Binding, EveryPageReturnsTheRecordItWasFilledWith) {
    startFull();
    const CompanyRecord before = tCustomerInfo;
    for (int page : {1, 2, 3, 4, 0}) {
        turnTo(page);
        EXPECT_TRUE(PF_SetData_tCustomerInfo("frm_CompInp" + std::to_string(page)));
        EXPECT_TRUE(PF_SetData_tCustomerInfo("frm_CompInp" + std::to_string(page)));
        EXPECT_EQ(differences(before, tCustomerInfo), (std::map<std::string, std::string>{})) << page;
    }
}

TEST_F(Binding, EachControlGoesIntoItsOwnField) {
    startFull();
    for (int number = 0; number < 3; ++number) {
        turnTo(number);
        const CompanyRecord before = tCustomerInfo;
        std::vector<const TextInput*> marked;
        for (Control* control : screen().controls()) {
            auto* input = dynamic_cast<TextInput*>(control);
            if (input != nullptr && input->name() != "txt_Tiku_Code") {
                marked.push_back(input);
                input->setText("印'" + std::to_string(marked.size()));
            }
        }
        ASSERT_TRUE(PF_SetData_tCustomerInfo(screen().name()));
        auto changed = differences(before, tCustomerInfo);
        changed.erase("TIKU_CODE");
        EXPECT_EQ(changed.size(), marked.size()) << "page " << number << ": each mark in one field";
        for (const TextInput* input : marked) {
            std::string name = input->name().substr(4);
            std::transform(name.begin(), name.end(), name.begin(), ::toupper);
            name = name == "THIHO_MINUTES"   ? "TEIHO_MINUTES"
                   : name == "PHOTOFILEPATH" ? "PHOTO_FILE" + std::to_string(input->index() + 1)
                                             : name;
            EXPECT_EQ(changed[name], "印’" + input->text().substr(std::string("印'").size())) << name;
        }
    }
}

TEST_F(Binding, AFoundTextIsNormalisedToo) {
    startOn(2);
    page<frm_CompInp2>().lbl_Railroad_Name.setCaption("線'");
    page<frm_CompInp2>().lbl_Station_Name.setCaption("駅'");
    EXPECT_TRUE(PF_SetData_tCustomerInfo2());
    EXPECT_EQ(tCustomerInfo.RAILROAD_NAME + tCustomerInfo.STATION_NAME, "線’駅’");
}

TEST_F(Binding, TheDistrictFollowsFromTheLine) {
    startOn(2);
    auto& form = page<frm_CompInp2>();
    form.txt_Tiku_Code.setText("never read");
    for (const auto& [line, district] : {std::pair{"409999", "4000"}, {"", "00"}, {"7", "700"}}) {
        form.txt_Railroad_Code.setText(line);
        EXPECT_TRUE(PF_SetData_tCustomerInfo2());
        EXPECT_EQ(tCustomerInfo.TIKU_CODE, district) << line;
    }
}

TEST_F(Binding, GreyIsNotTickedAndAnEmptyNumberIsBlank) {
    startOn(0);
    page<frm_CompInp0>().chk_EqualData.setValue(2);
    EXPECT_TRUE(PF_SetData_tCustomerInfo0());
    EXPECT_EQ(tCustomerInfo.SAME_CHECK, "0");
    turnTo(1);
    page<frm_CompInp1>().chk_Koutori[2].setValue(2);
    page<frm_CompInp1>().txt_Get_License_Date[0].setText("");
    EXPECT_TRUE(PF_SetData_tCustomerInfo1());
    EXPECT_EQ(tCustomerInfo.KOUTORI_FLG, "0000000000000000");
    EXPECT_EQ(tCustomerInfo.GET_LICENSE_DATE_YEAR, "");
    EXPECT_EQ(tCustomerInfo.GET_LICENSE_DATE_MONTH, "4");
}

TEST_F(Binding, OnlyTheNamedPageWritesAndOnlyWhenItIsReady) {
    startOn(0);
    page<frm_CompInp0>().txt_Company_Name.setText("x");
    for (const char* name : {"frm_compinp0", "frm_CompInp5", "frm_CompInp", ""}) {
        EXPECT_TRUE(PF_SetData_tCustomerInfo(name));
        EXPECT_EQ(tCustomerInfo.COMPANY_NAME, "あおぞら架空不動産㈱");
    }
    screen().ready = false;
    EXPECT_TRUE(PF_SetData_tCustomerInfo("frm_CompInp0"));
    EXPECT_EQ(tCustomerInfo.COMPANY_NAME, "あおぞら架空不動産㈱");
    EXPECT_TRUE(PF_SetData_tCustomerInfo("frm_CompInp1")) << "a page that was never opened";
    EXPECT_EQ(tCustomerInfo.LICENSE_NO, "東京都知事");
}

TEST_F(Binding, RejectedValuesAreReportedTogetherAndTheOthersAreFilled) {
    sql("update TBL_CUSTOMER_INFO set GET_LICENSE_DATE_YEAR = 'x', VALID_LICENSE_DATE_MONTH = '13', "
        "VALID_LICENSE_DATE_DAY = '1e9', OTHER_DANTAI_NAME = '家主会', DANTAI_FLG = '0' where USER_ID = '000004601'");
    start();
    turnTo(1);
    expectShown("ESSX5050", {"、、免許証有効期限(開始)免許証有効期限(終了)免許証有効期限(終了)"});
    auto& form = page<frm_CompInp1>();
    EXPECT_EQ(form.txt_Get_License_Date[0].text(), "");
    EXPECT_EQ(form.txt_Get_License_Date[1].text(), "4");
    EXPECT_EQ(form.txt_Other_Dantai_Name.text(), "家主会");
    EXPECT_EQ(form.chk_Dantai[0].value(), 0) << "whatever the list shows";
    EXPECT_TRUE(form.ready);
    EXPECT_EQ(log(), "");
}

TEST_F(Binding, APageShowsAnotherCompanyAsIfOpenedAnew) {
    sql("update TBL_CUSTOMER_INFO set LICENSE_NO = '他', GET_LICENSE_NENGOU = '他', VALID_LICENSE_DATE_MONTH = '13', "
        "DANTAI_FLG = '1', DANTAI_NAME = '他', CAR_DISTANCE = 'x' where USER_ID = '000004602'");
    for (int number = 0; number < kPageCount; ++number) {
        startFull(number);
        for (const char* company : {"000004602", kCompany, "000004603", kMarker, "000004602"}) {
            choose(company);
            const CompanyRecord loaded = tCustomerInfo;
            const auto handedOver = [&] {
                EXPECT_TRUE(PF_SetData_tCustomerInfo(screen().name()));
                return std::exchange(tCustomerInfo, loaded);
            };
            const CompanyRecord switched = handedOver();
            for (const int next : {number == 0 ? 1 : 0, number}) {
                screen().ready = false;  // does not copy to the record
                turnTo(next);
            }
            EXPECT_EQ(differences(switched, handedOver()), (std::map<std::string, std::string>{})) << number << company;
        }
        endRun();
        messages.shown.clear();
    }
}

TEST_F(Binding, AnAddressWithoutItsCodeGoesWhereAddressesAreSearched) {
    const auto expectSearches = [](bool shown) {
        const auto& form = page<frm_CompInp0>();
        EXPECT_EQ(form.btm_SearchOfficeAddress.visible(), shown);
        EXPECT_EQ(form.btm_Pc_SearchOfficeAddress.visible(), shown);
    };
    sql("update TBL_CUSTOMER_INFO set ADDRESS_CODE = '', SAME_CHECK = '0', PC_ADDRESS = 'x' where USER_ID = "
        "'000004601'");
    startOn(0, "000004601,1,1");
    EXPECT_EQ(tCustomerInfo.ADDRESS, "東京都新宿区新宿３丁目") << "typed addresses have no code";
    expectSearches(false);
    leave();
    messages.shown.clear();
    startOn(0, "000004601,1,0");
    EXPECT_EQ(tCustomerInfo.ADDRESS + tCustomerInfo.PC_ADDRESS, "");
    EXPECT_EQ(page<frm_CompInp0>().txt_Address.text(), "");
    expectSearches(true);
}

}  // namespace
}  // namespace orv
