// Entry points of the whole system.
#include <array>
#include <cstdlib>
#include <memory>

#include "adapters/posix/sibling_words.h"
#include "fuzz/fuzz_target.h"
#include "support/fixture.h"

namespace orv::test {
namespace {

/// Runs the whole system without a screen.
class OfficeRun : public SystemTest {
public:
    void TestBody() override {}
};

std::unique_ptr<OfficeRun> theOffice;

/// Returns a target's office, shared by all its inputs. Only one exists at a time, and the previous one is destroyed
/// first.
template <class Office>
Office& officeOf() {
    if (dynamic_cast<Office*>(theOffice.get()) == nullptr) {
        theOffice.reset();
        theOffice = std::make_unique<Office>();
        std::atexit([] { theOffice.reset(); });
    }
    return static_cast<Office&>(*theOffice);
}

class Starts : public OfficeRun {
public:
    void runWith(const std::string& tail) {
        start(tail);
        require(!forms.forms().empty() || !shownIds().empty(), "a page or a message");
        endRun();
        require(store.open == 0, "no connection is left open");
        require(everything() == companies_ && one(kTables) == tables_, "no company and no table is touched");
        messages.shown.clear();
        windows.calls.clear();
        programs.commandLines.clear();
        if (const std::string log = com().LogErrFile(); files.exists(log)) {
            files.remove(log);
        }
    }

private:
    static constexpr const char* kTables = "select count(*) from sqlite_master";

    std::vector<std::string> companies_ = everything();
    std::string tables_ = one(kTables);
};

/// Tests the argument string. A page or a message is shown, and the store's tables are unchanged.
void feedArgument(const std::string& bytes) {
    // Longer ones are only slower, because their statement is rejected as well.
    if (bytes.size() <= 4096) {
        officeOf<Starts>().runWith(bytes);
    }
}

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
        }
        require(toCharacters(form.txt_Post_Code.text()).size() <= 8, "a post code keeps its length");
        require(codePage.encode(form.txt_Address.text()).size() <= 120, "an address keeps its length");
        require(shownIds().empty(), "invalid lines of a program show no message");
        siblings.commandLines.clear();
    }

private:
    static std::uint32_t named(std::uint32_t number) {
        const auto& form = page<frm_CompInp0>();
        const std::array<const Control*, 4> controls{&form.txt_Post_Code, &form.txt_Address, &form.txt_Address_Code,
                                                     &form.btm_SearchOfficeAddress};
        return number >= 1 && number <= controls.size() ? controls[number - 1]->handle() : number;
    }
};

/// Tests the lines that a search program sends to a waiting page. The handles of the fields are written as 1 to 3, that
/// of the button as 4.
void feedSibling(const std::string& bytes) { officeOf<Searches>().hear(bytes); }

}  // namespace

std::vector<FuzzTarget> fuzzTargets() {
    std::vector<FuzzTarget> all{
        {"argument",
         feedArgument,
         {"000004601,1,0", "---------,1,1", "000004606,1,0", "000009999,0,0", " , ,", "a,1E2,-0.5,x",
          "'; drop table TBL_LOCK; --,1,0", "x' or ''='',1,0", "\"000004601\",1,0", "ソ\xFF,１,0"}},
        {"sibling",
         feedSibling,
         {"TEXT 1 530-0001\nTEXT 2 大阪府大阪市北区梅田１丁目\nTEXT 3 27127001001\nKEY 4 13\n",
          "TEXT 2 \xFF\nTEXT 2 \x01\nTEXT 2\nKEY 4 256\nKEY 4 0", "TEXT 4294967296 x\nKEY 1 13\nkey 4 13\n \n\n",
          "TEXT 2 " + std::string(4000, 'a') + "\nTEXT 3 " + std::string(4000, '1') + "\nKEY 4 13"}},
    };
    std::ranges::move(byteTargets(), std::back_inserter(all));
    return all;
}

}  // namespace orv::test
