#include "adapters/posix/running_sockets.h"
#include "adapters/posix/sibling_fixture.h"
#include "another_user.h"

namespace orv {
namespace {

TEST_F(SiblingSocketTest, ALineThatIsTooLongOrNeverEndsIsGone) {
    for (const std::string& line : {std::string(4100, 'x') + "\n", std::string("TEXT 2 never fini")}) {
        happened.clear();
        std::filesystem::remove(office.root() + "/path");
        Client client(start());
        client.say("TEXT 1 a\n" + line);
        if (line.back() != '\n') client.hangUp();
        EXPECT_TRUE(waitFor("T1[a]gone"));
    }
}

TEST_F(SiblingSocketTest, ASecondConnectionAndAnotherUserAreClosed) {
    const std::string path = start();
    struct stat facts {};
    ASSERT_EQ(::stat(path.substr(0, path.rfind('/')).c_str(), &facts), 0);
    EXPECT_EQ(facts.st_mode & 0777U, 0700U) << "only this user comes to the socket";
    // Another user is rejected by the folder's permissions, or by the user id if the folder is open.
    for (const bool isOpen : {false, true}) {
        if (::geteuid() == 0) {
            ASSERT_EQ(::setresuid(-1, 65534, 0), 0);
            const Client stranger(path);
            ASSERT_EQ(::setresuid(-1, 0, 0), 0);
            EXPECT_EQ(stranger.connected(), isOpen);
            loop.settle();
            EXPECT_TRUE(stranger.received().ends_with("|"));
        }
        ASSERT_EQ(::chmod(path.substr(0, path.rfind('/')).c_str(), 0777) + ::chmod(path.c_str(), 0777), 0);
    }
    const Client visitor(path);
    visitor.say("TEXT 1 a\n");
    EXPECT_TRUE(waitFor("T1[a]"));
    const Client second(path);
    loop.settle();
    EXPECT_TRUE(second.received().ends_with("|"));
    visitor.say("KEY 2 13\n");
    EXPECT_TRUE(waitFor("T1[a]K2,13"));
}

TEST(RunningSockets, AnotherUserNeitherBringsAWindowToTheFrontNorKeepsOneFromOpening) {
    if (!canBeAnotherUser()) {
        GTEST_SKIP() << "no second user here: only root can act as one";
    }
    int listener = -1;
    int calls = 0;
    std::function<void()> arrival;
    RunningSockets names(
        [&](int number, std::function<void()> readable) {
            listener = number;
            arrival = std::move(readable);
            return std::shared_ptr<void>();
        },
        "local-sockets-test-" + std::to_string(::getpid()), [&] { ++calls; });
    ASSERT_TRUE(names.claim("000004601"));
    sockaddr_un address{};
    socklen_t size = sizeof address;
    auto* const place = reinterpret_cast<sockaddr*>(&address);
    ASSERT_EQ(::getsockname(listener, place, &size), 0);
    const auto made = [] { return Descriptor(::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0)); };
    EXPECT_EQ(asAnotherUser([&] { return ::connect(made().number(), place, size) == 0; }), 1);
    arrival();
    EXPECT_EQ(calls, 0);
    names.leave("000004601");
    const Descriptor holder = made();
    ASSERT_EQ(::setresuid(-1, kAnotherUser, 0), 0);
    const bool isHeld = ::bind(holder.number(), place, size) == 0 && ::listen(holder.number(), 1) == 0;
    ASSERT_EQ(::setresuid(-1, 0, 0), 0);
    EXPECT_TRUE(isHeld && names.claim("000004601"));
}

}  // namespace
}  // namespace orv
