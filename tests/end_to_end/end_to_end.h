#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <memory>
#include <string>

#include "desk.h"
#include "support/temp_folder.h"

namespace desk {

/// Provides a virtual display, the suite's server, and an office for each test.
class EndToEnd : public ::testing::Test {
protected:
    EndToEnd() {
        server_ = std::make_unique<ServerDesk>(folder_ / "server");
        office_ = std::make_unique<Office>(folder_ / "office", server_->port());
    }
    ~EndToEnd() override { server_->stop(); }

    Terminal terminal(const std::string& computer) { return Terminal(*office_, display_.name(), computer); }

    /// Returns a terminal that shows the company's first page.
    Terminal opened(const std::string& argument = "000004601,1,0") {
        Terminal desk = terminal("DESK-01");
        desk.start(argument);
        EXPECT_TRUE(desk.waitForPage(0));
        return desk;
    }
    void turnTo(Terminal& desk, int page) {
        desk.click("btm_ChangePage", page);
        ASSERT_TRUE(desk.waitForPage(page));
    }
    /// Presses the default button of the visible question or notice.
    void answer(Terminal& desk) {
        ASSERT_TRUE(desk.waitForNotice());
        desk.key("Return");
    }
    /// The same, and expects the page to be shown again.
    void answer(Terminal& desk, int page) {
        answer(desk);
        ASSERT_TRUE(desk.noticeGone());
        ASSERT_TRUE(desk.waitForPage(page));
    }
    void leaveByYes(Terminal& desk) {
        ASSERT_TRUE(desk.waitForNotice());
        desk.key("Left");
        desk.key("Return");
        EXPECT_EQ(desk.waitForEnd(), 0);
        EXPECT_EQ(locks(), "");
    }

    std::string locks() const {
        return office_->ask(
            "select USER_ID || ' ' || LOCAL_INFO from TBL_LOCK where USER_ID <> '000004606' order by 1");
    }
    std::string field(const std::string& name, const std::string& user = "000004601") const {
        return office_->ask("select " + name +
                            " from TBL_CUSTOMER_INFO A left join TBL_CUSTOMER_ADD B on A.USER_ID = "
                            "B.USER_ID where A.USER_ID = '" +
                            user + "'");
    }

    orv::TempFolder temp_;
    const std::filesystem::path& folder_ = temp_.path();
    VirtualDisplay display_;
    std::unique_ptr<ServerDesk> server_;
    std::unique_ptr<Office> office_;
};

inline bool contains(const std::string& text, const std::string& part) { return text.find(part) != std::string::npos; }

}  // namespace desk
