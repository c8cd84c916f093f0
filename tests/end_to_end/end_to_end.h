#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <memory>
#include <string>

#include "support/temp_folder.h"
#include "ui_driver.h"

namespace ui_driver {

/// Provides a virtual display, the suite's server, and an office for each test.
class EndToEnd : public ::testing::Test {
protected:
    EndToEnd() {
        server_ = std::make_unique<ServerProcess>(folder_ / "server");
        office_ = std::make_unique<Office>(folder_ / "office", server_->port());
    }
    ~EndToEnd() override { server_->stop(); }

    Terminal makeTerminal(const std::string& computer) { return Terminal(*office_, display_.name(), computer); }

    /// Returns a terminal that shows the company's first page.
    Terminal openProgram(const std::string& argument = "000004601,1,0") {
        Terminal terminal = makeTerminal("DESK-01");
        terminal.start(argument);
        EXPECT_TRUE(terminal.waitForPage(0));
        return terminal;
    }
    void turnTo(Terminal& terminal, int page) {
        terminal.click("btm_ChangePage", page);
        ASSERT_TRUE(terminal.waitForPage(page));
    }
    /// Presses the default button of the visible question or notice.
    void answer(Terminal& terminal) {
        ASSERT_TRUE(terminal.waitForNotice());
        terminal.key("Return");
    }
    /// The same, and expects the page to be shown again.
    void answer(Terminal& terminal, int page) {
        answer(terminal);
        ASSERT_TRUE(terminal.isNoticeGone());
        ASSERT_TRUE(terminal.waitForPage(page));
    }
    void leaveByYes(Terminal& terminal) {
        ASSERT_TRUE(terminal.waitForNotice());
        terminal.key("Left");
        terminal.key("Return");
        EXPECT_EQ(terminal.waitForEnd(), 0);
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
    std::unique_ptr<ServerProcess> server_;
    std::unique_ptr<Office> office_;
};

inline bool contains(const std::string& text, const std::string& part) { return text.find(part) != std::string::npos; }

}  // namespace ui_driver
