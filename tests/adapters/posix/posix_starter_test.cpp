#include "adapters/posix/posix_starter.h"

#include <gtest/gtest.h>
#include <sys/wait.h>

#include "support/temp_office.h"

namespace orv {
namespace {

TEST(PosixStarter, AScriptWithoutItsInterpreterFailsAndLeavesNoProcess) {
    const TempOffice office;
    ::chmod(office.write("C/ORV/BIN/NOSHELL.EXE", "#!/no/such/shell\n").c_str(), 0755);
    EXPECT_EQ(catchFailure([&] { PosixStarter(office.paths()).start("NOSHELL"); }), 53);
    EXPECT_EQ(::waitpid(-1, nullptr, WNOHANG), -1);
}

}  // namespace
}  // namespace orv
