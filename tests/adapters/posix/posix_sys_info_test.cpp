#include "adapters/posix/posix_sys_info.h"

#include <gtest/gtest.h>

#include "adapters/posix/registry_file.h"
#include "adapters/text/cp932.h"
#include "temp_office.h"

namespace orv {
namespace {

TEST(ChooseAddress, TakesTheOneThatOthersReach) {
    const NetAddress loopback{"127.0.0.1", true, true, true};
    const NetAddress down{"10.0.0.9", false, false, true};
    const NetAddress linkOnly{"169.254.3.4", true, false, true};
    const NetAddress v6{"2001:db8::1", true, false, false};
    const NetAddress first{"192.168.1.20", true, false, true};
    const NetAddress second{"10.0.0.5", true, false, true};
    const std::pair<std::vector<NetAddress>, std::string> cases[] = {
        {{}, ""},
        {{loopback, down}, ""},
        {{loopback, first, second}, first.text},
        {{v6, second}, second.text},
        {{linkOnly, v6}, v6.text},
        {{linkOnly}, linkOnly.text},
    };
    for (const auto& [addresses, expected] : cases) {
        EXPECT_EQ(chooseAddress(addresses), expected);
    }
}

}  // namespace
}  // namespace orv
