// What a search program says, line by line, to a page that waits for it. The handles of the fields are written as 1 to
// 3, that of the button as 4.
#include "adapters/posix/sibling_words.h"
#include "fuzz/office_run.h"

namespace orv::test {
namespace {

class Searches : public OfficeRun {
public:
    Searches() {
        start();
        page<frm_CompInp0>().chk_EqualData.setValue(0);
    }
    void hear(const std::string& said) {
        auto& form = page<frm_CompInp0>();
        form.btm_SearchOfficeAddress.press();
        const SiblingCalls calls{
            .setText = [this](auto handle, const auto& text) { return siblings.setText(named(handle), text); },
            .pressKey = [this](auto handle, int key) { return siblings.pressKey(named(handle), key); },
            .gone = [] {}};
        for (std::size_t at = 0; at < said.size() && siblings.listenedTo();) {
            const std::string line = said.substr(at, said.find('\n', at) - at);
            static_cast<void>(obey(line, calls));
            at += line.size() + 1;
        }
        siblings.end();
        require(form.enabled() && !siblings.listenedTo(), "the page is given back");
        for (const TextInput* field : {&form.txt_Post_Code, &form.txt_Address, &form.txt_Address_Code}) {
            require(isShowable(field->text()), "a field holds a text");
            require(codePage.encode(field->text()).size() <= 256, "a field keeps its length");
        }
        require(shownIds().empty(), "nobody is told of a program's nonsense");
        siblings.commandLines.clear();
    }

private:
    static std::uint32_t named(std::uint32_t number) {
        const auto& form = page<frm_CompInp0>();
        switch (number) {
            case 1:
                return form.txt_Post_Code.handle();
            case 2:
                return form.txt_Address.handle();
            case 3:
                return form.txt_Address_Code.handle();
            case 4:
                return form.btm_SearchOfficeAddress.handle();
            default:
                return number;
        }
    }
};

void run(const std::string& bytes) { officeOf<Searches>().hear(bytes); }

}  // namespace

FuzzTarget siblingTarget() {
    return {"sibling",
            run,
            {"TEXT 1 530-0001\nTEXT 2 大阪府大阪市北区梅田１丁目\nTEXT 3 27127001001\nKEY 4 13\n",
             "TEXT 2 \xFF\nTEXT 2 \x01\nTEXT 2\nKEY 4 256\nKEY 4 0", "TEXT 4294967296 x\nKEY 1 13\nkey 4 13\n \n\n",
             "TEXT 2 " + std::string(4000, 'a') + "\nKEY 4 13"}};
}

}  // namespace orv::test
