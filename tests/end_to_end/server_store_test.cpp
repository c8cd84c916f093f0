#include "end_to_end.h"
#include "private_server.h"

namespace ui_driver {
namespace {

/// The same office with its store on a server.
class ServerStore : public EndToEnd {
protected:
    ServerStore() {
        std::filesystem::remove(office_->store());
        std::ofstream(office_->store()) << "# the office's server\n" << database_.text("sample") << "\n";
    }

    std::string company(const std::string& field) const {
        return database_.sql("sample", "select " + field + " from TBL_CUSTOMER_INFO where USER_ID = '000004601'");
    }
    std::string serverLocks() const {
        return database_.sql("sample", "select LOCAL_INFO from TBL_LOCK where USER_ID = '000004601'");
    }

    orv::PrivateServer database_;
};

TEST_F(ServerStore, AServerThatGoesAndComesBackCostsNothing) {
    Terminal terminal = openProgram();
    terminal.enter("txt_Tanto_Name", "操作　花子");
    database_.stop("immediate");
    terminal.click("btm_Save");
    answer(terminal, 0);
    EXPECT_TRUE(eventually([&] { return contains(office_->errLog(), "DBCONN02,"); })) << office_->errLog();
    database_.start();
    EXPECT_NE(company("TANTO_NAME"), "操作　花子\n");
    terminal.click("btm_Save");
    answer(terminal, 0);
    EXPECT_EQ(company("TANTO_NAME"), "操作　花子\n");
    EXPECT_EQ(serverLocks(), "DESK-01\n");
}

}  // namespace
}  // namespace ui_driver
