// Whatever an operator can enter or paste, through the controls into the record, into the real store and back.

#include "binding/page_to_record.h"
#include "core/flow/company_write.h"
#include "platform/utf8.h"
#include "support/fixture.h"
#include "validation/text/blanks.h"

namespace orv {
namespace {

using Texts = std::vector<std::string>;

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

TEST_F(AnyText, EveryCharacterOfUnicodeComesBackAsItWasCleaned) {
    constexpr char32_t kEnd = 0x110000;
    constexpr char32_t kPart = 0x4000;
    auto& input = page<frm_CompInp0>().txt_Company_Name;
    for (char32_t first = 0; first < kEnd; first += kPart) {
        std::u32string part;
        for (char32_t character = first; character < first + kPart; ++character) {
            if (character < 0xD800 || character > 0xDFFF) {
                part += character;
            }
        }
        input.setText(toUtf8(part) + "|");
        ASSERT_TRUE(PF_SetData_tCustomerInfo0());
        std::string cleaned;
        strings.Normalize(input.text(), cleaned);
        EXPECT_EQ(tCustomerInfo.COMPANY_NAME, cleaned);
        EXPECT_EQ(cleaned.find_first_of("'\r\n\t"), std::string::npos);
        tCustomerInfo.COMPANY_COMMENT = tCustomerInfo.COMPANY_NAME;
        expectItComesBack();
        EXPECT_EQ(tCustomerInfo.COMPANY_COMMENT, cleaned) << static_cast<unsigned>(first);
    }
}

TEST_F(AnyText, OddTextsInEveryFieldAreCutToItAndComeBack) {
    std::string huge;
    for (int i = 0; i < 25000; ++i) {
        huge += "山ｱ'x";
    }
    const Texts odd{huge,
                    "a\x01\x02\x7F\r\n\tb",
                    "\u202Eabc\u200F\u2066def",
                    "😀👨‍👩‍👧🏠",
                    "ｶﾞｷﾞｸﾞﾊﾟ｡｢｣",
                    "１２３－４５",
                    "-12",
                    "');drop table TBL_CUSTOMER_INFO;--",
                    "\"%s%n\\0\\",
                    "　 　",
                    "か\u3099は\u309A〜−‖¢£"};
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
