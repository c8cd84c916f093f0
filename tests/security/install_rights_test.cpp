#include <gtest/gtest.h>

#include <cstdlib>

#include "support/temp_folder.h"

namespace orv {
namespace {

TEST(InstallRights, AreTheSameWhateverTheUmask) {
    const TempFolder folder;
    for (const std::string umask : {"000", "077"}) {
        const std::string target = "'" + folder.file(umask) + "'";
        const std::string command = "umask " + umask + "; " INSTALL " " + target + " >/dev/null && cd " + target +
                                    " && find . -mindepth 1 -printf '%m %P\\n' | sort -k 2 >../" + umask + ".list";
        ASSERT_EQ(std::system(command.c_str()), 0);
    }
    const std::string list = folder.bytesOf("000.list");
    EXPECT_EQ(list, folder.bytesOf("077.list"));
    for (const char* line : {"755 bin/orv_store\n", "755 share/orv/office/C/ORV/BIN/KELT_COS.EXE\n",
                             "755 share/orv/office/C/ORV/SYS\n", "644 share/orv/office/C/ORV/SYS/system.ini\n"}) {
        EXPECT_NE(list.find(line), std::string::npos) << line << list;
    }
}

}  // namespace
}  // namespace orv
