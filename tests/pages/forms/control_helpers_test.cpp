#include "pages/forms/control_helpers.h"

#include "pages/forms/master_lists.h"
#include "support/fixture.h"

namespace orv {
namespace {

class Helpers : public SystemTest {
protected:
    ComboBox& list = page<frm_CompInp1>().cbo_License_No;
};

TEST_F(Helpers, AListAcceptsItsOwnItems) {
    list.addItems({"甲", "乙", "丙"});
    for (const auto& [value, shown, refused] : std::to_array<std::array<const char*, 3>>({{"乙  ", "乙", ""},
                                                                                          {"丁", "乙", ""},
                                                                                          {"", "", ""},
                                                                                          {" 甲", "", ""},
                                                                                          {"甲", "甲", ""},
                                                                                          {"  ", "", "免許証番号"}})) {
        gErrItems.clear();
        EXPECT_TRUE(PF_SetControlValue(list, value));
        EXPECT_EQ(list.text(), shown) << value;
        EXPECT_EQ(gErrItems, refused) << "after its end a list has a blank that cannot be chosen";
    }
    files.hide(com().HlpFile());
    EXPECT_TRUE(PF_SetControlValue(list, "甲"));
    EXPECT_EQ(list.text(), "") << "without the file of field names";
}

TEST_F(Helpers, DisplayNames) {
    settings.set("SSX", "txt_Property_Type_Code", "0,種目,説明");
    settings.set("SSX", "one", "0");
    for (const auto& [name, shown, after] : {
             std::array{"txt_Tel_No1", "TEL", "txt_Tel_No1"},
             std::array{"CBO_property_TYPE_Code", "種目", "txt_Property_Type_Code"},
             std::array{"one", "[P_ChgControl]にて判断できない項目", "one"},
             std::array{"unknown", "[P_ChgControl]にて判断できない項目", "unknown"},
         }) {
        std::string control = name;
        EXPECT_EQ(P_ChgControl(control), shown);
        EXPECT_EQ(control, after);
    }
}

class MasterLists : public Helpers {
protected:
    MasterLists() { openStore(); }
    ~MasterLists() override { closeStore(); }
};

TEST_F(MasterLists, TheStatementsToTheBlank) {
    for (const auto& [kind, sqlText] : {
             std::pair{kListOthers,
                       "  SELECT ITEM_NAME     FROM MST_OTHERS    WHERE TYPE_CODE = '002' "
                       "     AND DEL_FLAG = FALSE ORDER BY SORT_KEY"},
             {kListPropertyTypes,
              "  SELECT PROPERTY_TYPE_NAME     FROM MST_PROPERTY_TYPE    WHERE Left(PROPERTY_TYPE_CODE,2) = '002' "
              "     AND DEL_FLAG = FALSE ORDER BY SORT_KEY"},
             {kListCompanies, "  SELECT USER_ID     FROM TBL_CUSTOMER_INFO ORDER BY USER_ID"},
             {kListDistricts, "  SELECT TIKU_NAME     FROM MST_TIKU    WHERE DEL_FLG = FALSE ORDER BY SORT_KEY"},
             {kListCorporations, "  SELECT CORP_NAME, CORP_CODE     FROM MST_CORP ORDER BY CORP_CODE "},
             {std::int16_t{5}, ""},
             {std::int16_t{-1}, ""},
         }) {
        static_cast<void>(PF_MakeComboBox(list, "002", false, kind));
        EXPECT_EQ(store.statements.back(), sqlText) << kind;
    }
}

TEST_F(MasterLists, MayBeEmptyOrNot) {
    for (const char* table : {"MST_OTHERS", "MST_PROPERTY_TYPE", "MST_TIKU", "MST_CORP"}) {
        sql(std::string("delete from ") + table);
    }
    for (const std::int16_t kind : {kListOthers, kListPropertyTypes, kListDistricts}) {
        list.addItem("old");
        EXPECT_FALSE(PF_MakeComboBox(list, "002", true, kind));
        EXPECT_EQ(gErrMsg + gErrCode, "コンボボックスデータ取得に失敗しました。ECBO0001");
        EXPECT_EQ(list.listCount(), 0);
    }
    EXPECT_TRUE(PF_MakeComboBox(list, "", false, kListCorporations));
}

}  // namespace
}  // namespace orv
