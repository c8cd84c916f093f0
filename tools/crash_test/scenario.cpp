#include "scenario.h"

#include <csignal>
#include <fstream>
#include <functional>
#include <sstream>

#include "config/settings.h"
#include "core/flow/start.h"
#include "core/record/globals.h"
#include "headless.h"
#include "images/frm_img_common.h"
#include "pages/forms/page_set.h"
#include "platform/forms/form_host.h"
#include "platform/services.h"
#include "traced_run.h"

namespace crash_test {
namespace {

class FixedClock : public orv::Clock {
public:
    orv::DateTime now() const override {
        return {.year = 2026, .month = 5, .day = 4, .hour = 9, .minute = 8, .second = 7};
    }
};

/// Records the messages, and accepts every fitted photo.
class Operator : public orv::MessageService, public headless::NoWindows {
public:
    orv::FailureRecord ErrorInfo() const override { return {}; }
    std::int32_t LastAnswer() const override { return 0; }
    bool ShowMessage(const std::string& id, const orv::Values& args) override {
        if (id != "LOG00001") {  // concerns the log, not the event
            messages += "|" + id + (args.empty() ? "" : "," + orv::toText(args.front()));
        }
        return true;
    }
    std::size_t showNotice(const orv::Notice& notice) override {
        messages += "|box," + notice.title;
        return notice.defaultButton;
    }
    void runModal(orv::Form& form) override { dynamic_cast<orv::frm_ImgCommon&>(form).cmd_Entry.press(); }

    std::string messages;
};

/// True if the messages are only those of a successful event.
bool wentWell(std::string messages) {
    for (const std::string expected : {"|COS20001", "|COS20002", "|ADD00010", "|COS05574"}) {
        for (std::size_t at = messages.find(expected); at != std::string::npos; at = messages.find(expected)) {
            messages.erase(at, expected.size());
        }
    }
    return messages.empty();
}

class Session {
public:
    explicit Session(const Scenario& scenario)
        : scenario_(scenario), report_(scenario.report), program_(scenario.programFolder) {
        std::signal(SIGPIPE, SIG_IGN);  // like main()
        orv::Services& all = orv::services();
        all.message = &operator_;
        all.windows = &operator_;
        all.clock = &clock_;
        all.commandTail = scenario.company + ",1,0";
    }

    void work() {
        perform("open", [] { orv::Main(); });
        if (orv::services().forms->activeForm() == nullptr) {
            return;
        }
        report_ << "shown|" << orv::page<orv::frm_CompInp0>().txt_Tanto_Name.text();
        for (std::int16_t slot = 0; slot < 2; ++slot) {
            report_ << "|" << fingerprint(native(orv::com().TmpNoTmpFile(slot)));
        }
        report_ << std::endl;
        performTwice("edit", [this] { edit(); });
        performTwice("save", [this] { screen().btm_Save.press(); });
        performTwice("leave", [this] {
            if (orv::services().forms->activeForm() != nullptr) {
                screen().btm_Back_Menu.press();
            }
        });
    }

private:
    static std::string native(const std::string& path) { return orv::services().fileSystem->nativePath(path); }
    static orv::PageForm& screen() { return dynamic_cast<orv::PageForm&>(*orv::services().forms->activeForm()); }
    static void turnTo(std::size_t page) { screen().btm_ChangePage[page].press(); }

    bool perform(const std::string& name, const std::function<void()>& event) {
        operator_.messages.clear();
        event();
        orv::services().forms->sweep();
        report_ << name << operator_.messages << std::endl;
        eventIsOver();
        return wentWell(operator_.messages);
    }
    void performTwice(const std::string& name, const std::function<void()>& event) {
        if (!perform(name, event)) {
            perform(name, event);
        }
    }
    void edit() {
        for (std::size_t page = 4; page < 5; --page) {
            turnTo(page);
        }
        orv::page<orv::frm_CompInp0>().txt_Tanto_Name.setText(scenario_.words);
        turnTo(1);
        orv::page<orv::frm_CompInp1>().txt_License_No_Go.setText("12345");
        turnTo(3);
        orv::page<orv::frm_CompInp3>().chk_Business_Type_Flg[0].setValue(1);
        turnTo(2);
        auto& page = orv::page<orv::frm_CompInp2>();
        page.txt_Day_Off.setText(scenario_.words);
        for (std::size_t slot = 0; slot < scenario_.photos.size(); ++slot) {
            page.pic_PhotoFile[slot].drop(orv::services().fileSystem->systemPath(scenario_.photos[slot]));
        }
    }

    const Scenario& scenario_;
    std::ofstream report_;
    headless::Program program_;
    FixedClock clock_;
    Operator operator_;
};

}  // namespace

void runScenario(const Scenario& scenario) { Session(scenario).work(); }

std::string fingerprint(const std::string& nativePath) {
    std::ostringstream content;
    content << std::ifstream(nativePath, std::ios::binary).rdbuf();
    const std::string bytes = content.str();
    return bytes.empty() ? "-" : std::to_string(std::hash<std::string>()(bytes));
}

}  // namespace crash_test
