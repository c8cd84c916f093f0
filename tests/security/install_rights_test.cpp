#include <sys/stat.h>
#include <sys/xattr.h>

#include <array>

#include "another_user.h"
#include "programs/store/store_tool_fixture.h"

namespace orv {
namespace {

TEST(InstallRights, AreTheSameForAnyUmask) {
    const TempFolder folder;
    for (const std::string umask : {"000", "077"}) {
        const std::string target = "'" + folder.file(umask) + "'";
        const std::string command = "umask " + umask + "; " INSTALL " " + target + " >/dev/null && cd " + target +
                                    " && find . -mindepth 1 -printf '%m %P\\n' | sort -k 2 >../" + umask + ".list";
        ASSERT_EQ(std::system(command.c_str()), 0);
    }
    const std::string list = folder.readBytes("000.list");
    EXPECT_EQ(list, folder.readBytes("077.list"));
    for (const char* line : {"755 bin/orv-office\n", "755 lib/orv/office/C/ORV/BIN/KELT_COS.EXE\n",
                             "755 lib/orv/office/C/ORV/SYS\n", "644 lib/orv/office/C/ORV/SYS/system.ini\n"}) {
        EXPECT_NE(list.find(line), std::string::npos) << line << list;
    }
}

/// Lets one more user read a file, or the new files of a folder, by a list in the system's own form.
int addToAccessList(const std::string& path) {
    const std::string list(
        "\2\0\0\0\1\0\6\0\xff\xff\xff\xff\2\0\4\0\1\0\0\0\4\0\4\0\xff\xff\xff\xff"
        "\x10\0\4\0\xff\xff\xff\xff\x20\0\0\0\xff\xff\xff\xff",
        44);
    const char* name = std::filesystem::is_directory(path) ? "system.posix_acl_default" : "system.posix_acl_access";
    return ::setxattr(path.c_str(), name, list.data(), list.size(), 0);
}

using OfficeRights = StoreTool;

TEST_F(OfficeRights, TheCheckReportsPermissionsThatAreTooOpen) {
    const std::string base = "srv/C/ORV/";
    const std::string store = base + "MDB/ORVESTATE.MDB";
    for (const char* name : {"BIN/KELT_COS.EXE", "SYS/system.ini", "HLP/help.hlp", "MDB/other", "IMG/1/a.jpg",
                             "LOG/ERR/261125_err.log", "TMP/.orv-run-1/TmpImg_1"}) {
        folder.write(base + name, "");
    }
    folder.write("srv/registry.txt", "");
    std::filesystem::copy_file(office, folder.file(store));
    // The commands of the manual itself, for the group of the other user.
    const std::string manual = std::string("sed -n 's,^    \\(find .*\\|cd C/ORV && .*\\)$,\\1,p' '") + kSampleFolder +
                               "/../docs/operating/install.md'";
    const auto close = [&] {
        const std::string give = canBeAnotherUser() ? "chown -R 0:65534 . && " : "";
        const std::string commands = "cd '" + folder.file("srv") + "' && " + give + "sh -e -c \"$(" + manual + ")\"";
        ASSERT_EQ(std::system(commands.c_str()), 0);
    };
    close();
    ASSERT_EQ(::chmod(folder.file(base + "TMP/.orv-run-1").c_str(), 0700), 0);
    const auto report = [&](const std::string& user) { return tool("check " + store, user).out; };
    EXPECT_EQ(report("").find("srv"), std::string::npos) << report("");
    std::vector<std::array<std::string, 3>> cases{
        {"srv", "chmod 2770", "can be changed by others"},
        {base + "BIN", "chmod 2770", "can be changed by others"},
        {base + "SYS/system.ini", "chmod 0660", "can be changed by others"},
        {base + "SYS/system.ini", "chmod 0644", "is open to all users"},
        {base + "LOG/ERR/261125_err.log", "chmod 0644", "is open to all users"},
        {base + "LOG", "chmod 2771", "is open to all users"},
        {store, "chmod 0664", "is open to all users"},
        {base + "HLP", "", "is open to users on an access list"},
        {base + "HLP/help.hlp", "", "is open to users on an access list"}};
    if (canBeAnotherUser()) {
        EXPECT_NE(report("setpriv --reuid=65534 --regid=65534 --clear-groups ").find("TBL_CUSTOMER_INFO: 6 rows"),
                  std::string::npos)
            << "a clerk can check too";
        cases.push_back({base + "BIN/KELT_COS.EXE", "chown 65534", "belongs to another user"});
        cases.push_back({base + "IMG/1/a.jpg", "chgrp 0", "is open to another group"});
    }
    for (const auto& [path, open, expected] : cases) {
        const std::string place = folder.file(path);
        ASSERT_EQ(open.empty() ? addToAccessList(place) : std::system((open + " '" + place + "'").c_str()), 0) << path;
        EXPECT_NE(report("").find(place + ": " + expected), std::string::npos) << report("");
        close();
    }
}

}  // namespace
}  // namespace orv
