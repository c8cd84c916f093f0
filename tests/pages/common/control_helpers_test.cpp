#include "pages/common/control_helpers.h"

#include "pages/common/display_names.h"
#include "pages/common/master_lists.h"
#include "pages/controls/colours.h"
#include "support/fixture.h"

namespace orv {
namespace {

using Call = FailingStore::Call;
using Texts = std::vector<std::string>;

class Helpers : public SystemTest {
protected:
    frm_CompInp0& page0 = page<frm_CompInp0>();
    frm_CompInp1& page1 = page<frm_CompInp1>();
    frm_CompInp2& page2 = page<frm_CompInp2>();

    ComboBox& filled() {
        page1.cbo_License_No.clear();
        page1.cbo_License_No.addItems({"甲", "乙", "丙"});
        return page1.cbo_License_No;
    }
};

TEST_F(Helpers, AValueByTheKindOfTheControl) {
    EXPECT_TRUE(PF_SetControlValue(page0.txt_Office_Name, "  店  "));
    EXPECT_EQ(page0.txt_Office_Name.text(), "  店");
    EXPECT_TRUE(PF_SetControlValue(page0.lbl_UserId, "x "));
    EXPECT_EQ(page0.lbl_UserId.caption(), "x");
    EXPECT_TRUE(PF_SetControlValue(page2.txt_Car_Distance, "4.5 "));
    EXPECT_EQ(page2.txt_Car_Distance.text(), "4.5");
    EXPECT_TRUE(PF_SetControlValue(page2.txt_Car_Distance, ""));
    EXPECT_TRUE(page2.txt_Car_Distance.value().isNull());
    EXPECT_TRUE(PF_SetControlValue(page1.chk_Dantai[1], "1"));
    EXPECT_TRUE(PF_SetControlValue(page1.chk_Dantai[1], ""));
    EXPECT_EQ(page1.chk_Dantai[1].value(), 1) << "a blank leaves a box alone";
    EXPECT_FALSE(PF_SetControlValue(page0.btm_Save, "x"));
    EXPECT_FALSE(PF_SetControlValue(page2.pic_PhotoFile[0], "x"));
    EXPECT_EQ(gErrItems, "");
}

TEST_F(Helpers, AListTakesWhatItHolds) {
    ComboBox& list = filled();
    struct Case {
        std::string value, shown, refused;
    };
    for (const Case& c : {Case{"乙  ", "乙", ""}, Case{"丁", "乙", ""}, Case{"", "", ""}, Case{" 甲", "", ""},
                          Case{"甲", "甲", ""}, Case{"  ", "", "免許証番号"}}) {
        gErrItems.clear();
        EXPECT_TRUE(PF_SetControlValue(list, c.value));
        EXPECT_EQ(list.text(), c.shown) << c.value;
        EXPECT_EQ(gErrItems, c.refused) << "behind its end a list holds a blank that can't be chosen";
    }
}

TEST_F(Helpers, RefusedValues) {
    page2.txt_Car_Distance.setText("3");
    EXPECT_FALSE(PF_SetControlValue(page2.txt_Car_Distance, "x"));
    EXPECT_FALSE(PF_SetControlValue(page1.chk_Dantai[2], "y"));
    EXPECT_FALSE(PF_SetControlValue(page1.txt_Get_License_Date[1], "13"));
    std::string control = "txt_Car_Distance";
    EXPECT_EQ(gErrItems, "、、" + P_ChgControl(control) + "加盟団体のチェック免許証有効期限(開始)");
    EXPECT_EQ(page2.txt_Car_Distance.text(), "3") << "a number is not reset";
}

TEST_F(Helpers, DisplayNames) {
    settings.set("SSX", "txt_Property_Type_Code", "0,種目,説明");
    settings.set("SSX", "one", "0");
    settings.set("SSX", "two", "0,名");
    for (const auto& [name, shown, after] : {
             std::array{"txt_Tel_No1", "TEL", "txt_Tel_No1"},
             std::array{"CBO_property_TYPE_Code", "種目", "txt_Property_Type_Code"},
             std::array{"one", "[P_ChgControl]にて判断できない項目", "one"},
             std::array{"two", "名", "two"},
             std::array{"unknown", "[P_ChgControl]にて判断できない項目", "unknown"},
         }) {
        std::string control = name;
        EXPECT_EQ(P_ChgControl(control), shown);
        EXPECT_EQ(control, after);
    }
    settings.refuse("SSX", "two");
    std::string control = "two";
    EXPECT_EQ(P_ChgControl(control), "[P_ChgControl]にて判断できない項目");
}

TEST_F(Helpers, OpeningAndClosingAList) {
    ComboBox& list = filled();
    list.setText("丙");
    PF_EnableCombo(list, true, kRequiredField, "甲");
    EXPECT_EQ(list.text(), "丙") << "an open list keeps its choice";
    PF_EnableCombo(list, false);
    EXPECT_EQ(list.listIndex(), -1);
    EXPECT_EQ(list.backColour(), kDisabledField);
    EXPECT_FALSE(list.enabled());
    for (const auto& [value, shown] : {std::pair{"", "甲"}, {"0", "甲"}, {"乙", "乙"}, {"丁", ""}}) {
        PF_EnableCombo(list, false);
        PF_EnableCombo(list, true, kRequiredField, value);
        EXPECT_EQ(list.text(), shown) << value;
        EXPECT_TRUE(list.enabled());
        EXPECT_EQ(list.backColour(), kRequiredField);
    }
    list.clear();
    PF_EnableCombo(list, false);
    PF_EnableCombo(list, true);
    EXPECT_TRUE(list.enabled()) << "an empty list opens too";
    EXPECT_EQ(list.backColour(), kDisabledField) << "no colour given, none set";
}

TEST_F(Helpers, OpeningAndClosingFields) {
    page0.txt_Office_Name.setText("店");
    PF_EnableControl(page0.txt_Office_Name, true, kRequiredField);
    EXPECT_EQ(page0.txt_Office_Name.text(), "店");
    EXPECT_EQ(page0.txt_Office_Name.backColour(), kRequiredField);
    PF_EnableControl(page0.txt_Office_Name, false);
    EXPECT_EQ(page0.txt_Office_Name.text(), "");
    EXPECT_FALSE(page0.txt_Office_Name.enabled());
    NumberInput& number = page1.txt_Get_License_Date[0];
    number.setText("5");
    PF_EnableNumber(number, false);
    EXPECT_TRUE(number.value().isNull());
    EXPECT_EQ(number.backColour(), kDisabledField);
    PF_EnableNumber(number, true, kOptionalField);
    EXPECT_TRUE(number.enabled());
    EXPECT_EQ(number.backColour(), kOptionalField);
}

TEST_F(Helpers, FocusOnlyWhereItCanStand) {
    EXPECT_TRUE(PF_SetFocusTo(nullptr));
    EXPECT_TRUE(PF_SetFocusTo(&page0.txt_Address_Code)) << "hidden";
    EXPECT_TRUE(PF_SetFocusTo(&page0.txt_Pc_Address)) << "closed";
    EXPECT_EQ(page0.activeControl(), nullptr);
    EXPECT_TRUE(PF_SetFocusTo(&page0.txt_Tel_No1));
    EXPECT_EQ(page0.activeControl(), &page0.txt_Tel_No1);
    EXPECT_FALSE(PF_IsFormLoaded(page0)) << "making a page does not load it";
}

class MasterLists : public Helpers {
protected:
    MasterLists() { openStore(); }
    ~MasterLists() override { closeStore(); }
    ComboBox& list = page1.cbo_License_No;
};

TEST_F(MasterLists, TheStatementsToTheBlank) {
    for (const auto& [kind, sqlText] : {
             std::pair{kListOthers,
                       "  SELECT ITEM_NAME "
                       "    FROM MST_OTHERS "
                       "   WHERE TYPE_CODE = '002' "
                       "     AND DEL_FLAG = FALSE "
                       "ORDER BY SORT_KEY"},
             {kListPropertyTypes,
              "  SELECT PROPERTY_TYPE_NAME "
              "    FROM MST_PROPERTY_TYPE "
              "   WHERE Left(PROPERTY_TYPE_CODE,2) = '002' "
              "     AND DEL_FLAG = FALSE "
              "ORDER BY SORT_KEY"},
             {kListCompanies,
              "  SELECT USER_ID "
              "    FROM TBL_CUSTOMER_INFO "
              "ORDER BY USER_ID"},
             {kListDistricts,
              "  SELECT TIKU_NAME "
              "    FROM MST_TIKU "
              "   WHERE DEL_FLG = FALSE "
              "ORDER BY SORT_KEY"},
             {kListCorporations,
              "  SELECT CORP_NAME, CORP_CODE "
              "    FROM MST_CORP "
              "ORDER BY CORP_CODE "},
             {std::int16_t{5}, ""},
             {std::int16_t{-1}, ""},
         }) {
        static_cast<void>(PF_MakeComboBox(list, "002", false, kind));
        EXPECT_EQ(store.statements.back(), sqlText) << kind;
    }
}

TEST_F(MasterLists, TheirRows) {
    list.addItem("old");
    EXPECT_TRUE(PF_MakeComboBox(list, "002", false, kListOthers));
    EXPECT_EQ(list.listCount(), 50);
    EXPECT_EQ(list.list(0) + list.list(49), "国土交通大臣無し");
    EXPECT_TRUE(PF_MakeComboBox(list, "005", true, kListOthers));
    EXPECT_EQ(list.list(0) + "|" + list.list(1) + "|" + list.list(list.listCount() - 1), "|外観|その他");
    EXPECT_EQ(list.listCount(), 10) << "without the row that is flagged as deleted";
    EXPECT_TRUE(PF_MakeComboBox(list, "01", false, kListPropertyTypes));
    EXPECT_EQ(list.listCount(), 3);
    EXPECT_TRUE(PF_MakeComboBox(list, "", false, kListDistricts));
    EXPECT_EQ(list.listCount(), 10);
    EXPECT_TRUE(PF_MakeComboBox(list, "", false, kListCorporations));
    EXPECT_EQ(list.list(0), "株式会社");
}

TEST_F(MasterLists, WhichMayBeEmpty) {
    for (const char* table : {"MST_OTHERS", "MST_PROPERTY_TYPE", "TBL_CUSTOMER_INFO", "MST_TIKU", "MST_CORP"}) {
        sql(std::string("delete from ") + table);
    }
    for (const std::int16_t kind : {kListOthers, kListPropertyTypes, kListDistricts}) {
        list.addItem("old");
        EXPECT_FALSE(PF_MakeComboBox(list, "002", true, kind));
        EXPECT_EQ(gErrMsg + gErrCode, "コンボボックスデータ取得に失敗しました。ECBO0001");
        EXPECT_EQ(list.listCount(), 0);
    }
    EXPECT_TRUE(PF_MakeComboBox(list, "", false, kListCorporations));
    EXPECT_TRUE(fillCompanies(list));
    EXPECT_EQ(list.listCount(), 1);
    EXPECT_EQ(list.list(0), kMarker);
}

TEST_F(MasterLists, TheMarkerStandsOnceAtTheEnd) {
    EXPECT_TRUE(fillCompanies(list));
    EXPECT_EQ(list.listCount(), 7);
    EXPECT_EQ(list.list(6), kMarker);
    sql("insert into TBL_CUSTOMER_INFO (USER_ID) values ('---------')");
    EXPECT_TRUE(fillCompanies(list));
    EXPECT_EQ(list.listCount(), 7);
}

TEST_F(MasterLists, Failures) {
    store.fail(Call::Select);
    EXPECT_FALSE(PF_MakeComboBox(list, "002", false, kListOthers));
    EXPECT_EQ(gErrMsg + gErrCode, "ストアの故障DB:77");
    clearPair();
    store.mend();
    store.fail(Call::CloseRows, "", 2);
    EXPECT_TRUE(PF_MakeComboBox(list, "002", false, kListOthers)) << "the list is there before the closing fails";
    EXPECT_EQ(gErrMsg + gErrCode, "ストアの故障DB:77");
}

}  // namespace
}  // namespace orv
