#include "programs/store/store_tool_fixture.h"

namespace orv {
namespace {

TEST_F(StoreTool, AFullDiskOrAnInterruptionLeavesTheTargetWholeOrUntouched) {
    runSql(office, "UPDATE TBL_CUSTOMER_INFO SET COMPANY_NAME = 'other'");
    writeFile(folder.file("target"), readFile(makeSampleStore(folder.file("first"))));
    const std::string target = readFile(folder.file("target"));
    makeJet(4);
    const auto before = json("check target");
    onServer("busy", "sample");
    const std::string asked = runOnServer("busy", "SELECT * FROM TBL_CUSTOMER_INFO");
    // Limits files to a few KB, which is an error in the first case and ends the process in the second.
    for (const std::string limit : {"trap '' XFSZ; ulimit -f 16; ", "ulimit -c 0; ulimit -f 16; "}) {
        for (const std::string arguments : {"create new", "backup office new", "copy office new", "restore new office",
                                            "copy busy new", "import old.mdb new", "restore target office --yes",
                                            "copy office target --replace", "import old.mdb target --replace"}) {
            EXPECT_NE(tool(arguments, limit).ending, 0) << arguments;
            EXPECT_FALSE(std::filesystem::exists(folder.file("new"))) << arguments;
            EXPECT_EQ(json("check target"), before) << arguments;
        }
    }
    EXPECT_EQ(readFile(folder.file("target")), target);
    EXPECT_EQ(tool("copy office new").ending, 0) << "the files of an interrupted run do no harm";
    EXPECT_EQ(runOnServer("busy", "SELECT * FROM TBL_CUSTOMER_INFO"), asked);
    for (const std::string seconds : {"0.01", "0.02", "0.04", "0.06", "0.09"}) {
        tool("import old.mdb busy --replace", "timeout -s KILL " + seconds + " ");
        const std::string there = runOnServer("busy", "SELECT DISTINCT COMPANY_NAME = 'other' FROM TBL_CUSTOMER_INFO");
        EXPECT_TRUE(there == "f\n" || there == "t\n") << seconds << there;
    }
    EXPECT_FALSE(std::filesystem::exists(folder.file("new.partial")));
}

}  // namespace
}  // namespace orv
