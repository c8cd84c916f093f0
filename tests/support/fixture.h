#pragma once

#include <gtest/gtest.h>

#include "adapters/machine/file_deletion.h"
#include "adapters/machine/ini_reader.h"
#include "adapters/store/store_service.h"
#include "adapters/system/system_adapters.h"
#include "adapters/text/cp932.h"
#include "adapters/text/era_calendar.h"
#include "adapters/text/string_check.h"
#include "app/tie_system.h"
#include "config/settings.h"
#include "core/flow/company_load.h"
#include "core/flow/leaving.h"
#include "core/flow/start.h"
#include "core/record/globals.h"
#include "logging/trap.h"
#include "logging/write_log.h"
#include "pages/forms/page_set.h"
#include "platform/forms/form_host.h"
#include "platform/services.h"
#include "sample_folder.h"
#include "support/breakable.h"
#include "support/fake_windows.h"
#include "support/recorded_http.h"
#include "support/recorded_messages.h"
#include "support/scripted_machine.h"
#include "support/scripted_programs.h"
#include "support/store_files.h"
#include "support/test_registry.h"
#include "transmission/image_upload.h"

namespace orv {

using Texts = std::vector<std::string>;
using Call = FailingStore::Call;

/// A copy of the sample office on the disk: folders, settings, registry, store.
struct OfficeCopy {
    OfficeCopy() {
        copyFolder(kSampleFolder, folder.path());
        makeSampleStore(store());
    }
    std::string root() const { return folder.path().string(); }
    std::string store() const { return root() + "/C/ORV/MDB/ORVESTATE.MDB"; }

    TempFolder folder;
};

/// The whole system without a screen, on a copy of the sample office. Store, files, settings and text checks are real,
/// and a test can make each fail. There is no server and no other program.
class SystemTest : public testing::Test {
protected:
    static constexpr const char* kCompany = "000004601";
    static constexpr const char* kMarker = "---------";
    static constexpr std::array kTables{"TBL_CUSTOMER_INFO", "TBL_CUSTOMER_ADD", "TBL_CUSTOMER_DATE"};

    SystemTest() {
        theContext = {};
        dropSharedSettings();
        Services& all = services();
        all = {};
        all.db = &store;
        all.message = &messages;
        all.sysInfo = &machine;
        all.stringCheck = &strings;
        all.files = &fileService;
        all.send = [this] { return std::make_unique<ScriptedSend>(server); };
        all.fileSystem = &files;
        all.profiles = &settings;
        all.registry = &registry;
        all.programs = &programs;
        all.siblings = &siblings;
        all.facts = &facts;
        all.clock = &clock;
        all.codePage = &codePage;
        all.calendar = &calendar;
        all.http = [this] { return std::make_unique<RecordedHttp>(http); };
        all.pictures = &pictures;
        pictures.script.write = [this](const std::string& path, const std::string& bytes) {
            writeFile(files.nativePath(path), bytes);
        };
        all.windows = &windows;
        all.forms = &forms;
        tieSystem();
    }
    ~SystemTest() override {
        EXPECT_EQ(log().find(",,\r\n"), std::string::npos) << "a failure without a code and a text";
        endRun();
        EXPECT_EQ(store.open, 0) << "connections left open";
        services() = {};
        logFiles() = {};
    }

    /// Deletes the forms and all state that ends with the process.
    void endRun() {
        PF_Form_Clean();
        forms.sweep();
        dropPages();
        dropSendForm();
        dropSharedSettings();
        theContext = {};
    }

    void start(const std::string& tail = "000004601,1,0") {
        services().commandTail = tail;
        Main();
    }
    /// Starts, goes to that page and clears the recorded messages.
    PageForm& startOn(int page, const std::string& tail = "000004601,1,0") {
        messages.shown.clear();
        start(tail);
        if (page != 0) turnTo(page);
        EXPECT_EQ(shownIds(), Texts{});
        return screen();
    }
    PageForm& screen() {
        Form* active = forms.activeForm();
        EXPECT_NE(active, nullptr) << "no page on the screen";
        return active != nullptr ? dynamic_cast<PageForm&>(*active) : pageAt(0);
    }
    void turnTo(int page) { screen().btm_ChangePage[static_cast<std::size_t>(page)].press(); }
    void save() { screen().btm_Save.press(); }
    void leave() { screen().btm_Back_Menu.press(); }
    void pressCloseBox() { forms.unload(screen(), UnloadMode::CloseBox); }
    void choose(const std::string& userId) { screen().cbo_User_Id.setText(userId); }
    /// Sets the answer to the next question: 1 keeps the present state.
    void answer(std::int32_t number) { messages.answers.push_back(number); }

    /// Loads the company into the record as the start does.
    void load(const std::string& userId = kCompany) { ASSERT_TRUE(PF_GetCompanyData(userId)) << gErrMsg; }
    /// Opens a connection for routines that need one.
    void openStore() {
        bool ok = false;
        store.DbOpen(gConn, com().MdbOrvEstateDB(), ok);
        ASSERT_TRUE(ok);
    }
    void closeStore() {
        bool ok = false;
        store.DbClose(gConn, ok);
    }

    /// Changes the store without the program.
    void sql(const std::string& text) { runSql(office.store(), text); }
    /// Returns the rows of a select without the program, columns joined with "|".
    Texts rows(const std::string& select) { return readRows(office.store(), select); }
    std::string one(const std::string& select) {
        const Texts found = rows(select);
        return found.size() == 1 ? found.front() : std::to_string(found.size()) + " rows";
    }
    std::string info(const std::string& column, const std::string& userId = kCompany) {
        return one("select " + column + " from TBL_CUSTOMER_INFO where USER_ID = '" + userId + "'");
    }
    std::string add(const std::string& column, const std::string& userId = kCompany) {
        return one("select " + column + " from TBL_CUSTOMER_ADD where USER_ID = '" + userId + "'");
    }
    /// Returns "USER_ID holder" of each lock except the sample's own.
    Texts locks() {
        return rows("select USER_ID || ' ' || LOCAL_INFO from TBL_LOCK where LOCAL_INFO <> 'FRONT-PC02' order by 1");
    }
    /// Returns the whole content of the store, to detect changes.
    Texts everything() {
        Texts all;
        for (const char* table : kTables) {
            const auto found = rows(std::string("select * from ") + table + " order by USER_ID");
            all.insert(all.end(), found.begin(), found.end());
        }
        return all;
    }

    void renumber(const std::string& from, const std::string& to) {
        for (const std::string table : kTables) {
            sql("update " + table + " set USER_ID = '" + to + "' where USER_ID = '" + from + "'");
        }
    }

    std::string log() const {
        const std::string path = com().LogErrFile();
        return files.exists(path) ? codePage.decode(files.read(path, 1 << 20)) : std::string();
    }
    /// Returns a log record at the clock's time.
    std::string record(const std::string& code, const std::string& text) const {
        return toText(Value(clock.now())) + "," + code + "," + text + "\r\n";
    }
    Texts shownIds() const {
        Texts ids;
        for (const auto& shown : messages.shown) ids.push_back(shown.id);
        return ids;
    }
    /// Expects exactly this one message since the last check, with these values.
    void expectShown(const std::string& id, const Values& args) {
        ASSERT_EQ(shownIds(), Texts{id});
        EXPECT_EQ(messages.shown.front().args, args);
        messages.shown.clear();
    }
    /// Expects an event's failure to be shown, logged and cleared.
    void expectReported(const std::string& code, const std::string& text, const std::string& id = "COSERR01") {
        expectShown(id, {code, text});
        EXPECT_TRUE(log().ends_with(record(code, text))) << log();
        EXPECT_EQ(gErrMsg + gErrCode, "");
    }
    std::string readBytes(const std::string& path) const { return files.read(path, 1 << 20); }

    OfficeCopy office;
    Cp932 codePage;
    FixedFacts facts;
    FixedClock clock;
    EraCalendar calendar;
    SystemPaths paths{office.root(), office.root() + "/C/ORV/BIN"};
    WatchedFiles files{paths};
    FileDeletion fileService{files};
    IniReader iniReader{files, codePage, facts};
    OverriddenProfiles settings{iniReader};
    TestRegistry registry{office.root(), codePage};
    StoreService wholeStore{files, testStore()};
    FailingStore store{wholeStore};
    ScriptedSysInfo machine;
    StringCheck strings{codePage};
    BlankPictures pictures;
    RecordedMessages messages;
    StartedPrograms programs;
    ScriptedSibling siblings;
    SendScript server;
    HttpScript http;
    ScriptedWindows windows;
    FormHost forms;
};

}  // namespace orv
