// Whatever an operator can enter or paste, through the controls into the record, into the real store and back.

#include "binding/page_bindings.h"
#include "binding/page_to_record.h"
#include "core/flow/company_write.h"
#include "platform/controls/input_rules.h"
#include "platform/utf8.h"
#include "support/fixture.h"
#include "validation/text/blanks.h"

namespace orv {
namespace {

class AnyText : public SystemTest {
protected:
    AnyText() { startOn(0); }

    /// The fields of the pages as they stand, without what only the load knows.
    static Texts pageFields() {
        Texts fields;
        for (const FieldInfo& field : kFields) {
            const bool ofTheSave = field.name.starts_with("PHOTO_FILE") || field.name == "UPDATE_DATE";
            if (field.source == Source::Stored && field.text != nullptr && !ofTheSave) {
                fields.push_back(std::string(field.name) + "=" + trimmedRight(tCustomerInfo.*field.text));
            }
        }
        return fields;
    }
    /// Writes the record and reads it again.
    void expectItComesBack() {
        tCustomerInfo.PHOTO_FILE1.clear();
        tCustomerInfo.PHOTO_FILE2.clear();
        openStore();
        ASSERT_TRUE(PF_SetCompanyDataSave(kCompany)) << gErrMsg;
        const Texts written = pageFields();
        EXPECT_TRUE(PF_SetCompanyDataStructureChng(kCompany)) << gErrMsg;
        closeStore();
        const Texts read = pageFields();
        for (std::size_t i = 0; i < written.size(); ++i) {
            EXPECT_TRUE(read[i] == written[i]) << written[i].substr(0, 100) << "\n" << read[i].substr(0, 100);
        }
    }
    bool fits(const TextInput& input) const {
        const Limit& limit = input.textDesign().limit;
        const std::size_t length = limit.unit == Limit::Unit::CodePageBytes ? codePage.encode(input.text()).size()
                                                                            : toCharacters(input.text()).size();
        return limit.unit == Limit::Unit::None || length <= limit.most;
    }
};

/// Every field that takes what is written into its control: typed or pasted, found by a search program, or loaded.
std::vector<BindingRow> textFields() {
    std::vector<BindingRow> fields;
    for (const PageBinding* page : {&kBinding0, &kBinding1, &kBinding2, &kBinding3, &kBinding4}) {
        for (const Step& place : page->toRecord) {
            if (place.field == nullptr) {
                continue;
            }
            const BindingRow& row = rowOf(page->rows, place.field);
            if (row.takeBack == TakeBack::Normalised && row.control().kind() != ControlKind::ComboBox) {
                fields.push_back(row);
            }
        }
    }
    return fields;
}

/// Writes what the control admits of the text, whatever its limit. That much it holds then.
std::string written(Control& control, const std::string& text) {
    if (control.kind() == ControlKind::Label) {
        dynamic_cast<Label&>(control).setCaption(text);
        return text;
    }
    auto& input = dynamic_cast<TextInput&>(control);
    TextDesign endless = input.textDesign();
    endless.limit = {};
    input.setText(admit(endless, "", text));
    return input.text();
}

TEST_F(AnyText, EveryCharacterComesThroughEveryFieldAsItIsCleaned) {
    constexpr char32_t kEnd = 0x110000;
    constexpr char32_t kPart = 0x8000;
    const std::vector<BindingRow> fields = textFields();
    ASSERT_GE(fields.size(), 52U);
    for (char32_t first = 0; first < kEnd; first += kPart) {
        std::u32string part;
        for (char32_t character = first; character < first + kPart; ++character) {
            if (character < 0xD800 || character > 0xDFFF) {
                part += character;
            }
        }
        CompanyRecord kept;
        for (const BindingRow& row : fields) {
            const std::string text = written(row.control(), toUtf8(part));
            EXPECT_TRUE(first > 0 || !text.empty()) << row.control().objectName();
            strings.Normalize(text, kept.*row.field);
        }
        for (int number = 0; number < kPageCount; ++number) {
            pageAt(number).ready = true;
            ASSERT_TRUE(PF_SetData_tCustomerInfo("frm_CompInp" + std::to_string(number))) << gErrMsg;
        }
        for (const BindingRow& row : fields) {
            EXPECT_TRUE(tCustomerInfo.*row.field == kept.*row.field) << row.control().objectName();
            EXPECT_EQ((kept.*row.field).find_first_of("'\r\n\t"), std::string::npos);
        }
        expectItComesBack();
    }
}

TEST_F(AnyText, OddTextsInEveryFieldAreCutToItAndComeBack) {
    std::string huge;
    for (int i = 0; i < 25000; ++i) {
        huge += "山ｱ'x";
    }
    const Texts odd{huge, "a\x01\x02\x7F\r\n\tb", "');drop table TBL_CUSTOMER_INFO;--", "\"%s%n\\0\\", "　 　"};
    for (const std::string& text : odd) {
        SCOPED_TRACE(text.substr(0, 40));
        for (int number = 0; number < kPageCount; ++number) {
            for (Control* control : pageAt(number).controls()) {
                auto* input = dynamic_cast<TextInput*>(control);
                if (input != nullptr) {
                    input->setText("");
                    input->typed("", text, "");
                    EXPECT_TRUE(fits(*input)) << input->objectName();
                }
            }
            pageAt(number).ready = true;
            ASSERT_TRUE(PF_SetData_tCustomerInfo("frm_CompInp" + std::to_string(number))) << gErrMsg;
        }
        expectItComesBack();
    }
}

}  // namespace
}  // namespace orv
