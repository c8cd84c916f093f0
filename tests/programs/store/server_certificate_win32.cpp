#include "programs/store/store_tool_fixture.h"

namespace orv {
namespace {

TEST_F(StoreTool, AServerWithoutTheRightCertificateIsRefused) {
    if (!hasServer()) GTEST_SKIP() << "without a server";
    for (const auto& [right, wrong] : std::to_array<std::pair<std::string, std::string>>(
             {{"authority.pem", "stranger.pem"}, {"authority.pem", "missing.pem"}, {"localhost", "127.0.0.1"}})) {
        std::string text = serverText("sample");
        writeFile(folder.file("served"), text);
        EXPECT_EQ(json("status served")["companies"], 6);
        writeFile(folder.file("served"), text.replace(text.find(right), right.size(), wrong));
        EXPECT_EQ(json("status served")["failure"]["code"], "DBCONN02") << wrong;
    }
}

}  // namespace
}  // namespace orv
