#include <sys/stat.h>
#include <sys/xattr.h>

#include "another_user.h"
#include "store_tool/store_tool_fixture.h"

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

/// Lets one more user read, as a list of the system's own form does.
int addToAccessList(const std::string& path) {
    const std::string minus(4, '\xff');
    const auto entry = [](char tag, char rights, const std::string& id) { return std::string{tag, 0, rights, 0} + id; };
    const std::string list = std::string{2, 0, 0, 0} + entry(1, 6, minus) + entry(2, 4, std::string{1, 0, 0, 0}) +
                             entry(4, 4, minus) + entry(16, 4, minus) + entry(32, 0, minus);
    return ::setxattr(path.c_str(), "system.posix_acl_access", list.data(), list.size(), 0);
}

using OfficeRights = StoreTool;

TEST_F(OfficeRights, TheCheckSaysWhatOfAnOfficeIsTooOpen) {
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
                               "/../docs/operating.md'";
    const auto close = [&] {
        const std::string give = canBeAnotherUser() ? "chown -R 0:65534 . && " : "";
        const std::string commands = "cd '" + folder.file("srv") + "' && " + give + "sh -e -c \"$(" + manual + ")\"";
        ASSERT_EQ(std::system(commands.c_str()), 0);
    };
    close();
    ASSERT_EQ(::chmod(folder.file(base + "TMP/.orv-run-1").c_str(), 0700), 0);
    const auto report = [&](const std::string& user) { return tool("check " + store, user).out; };
    EXPECT_EQ(report("").find("srv"), std::string::npos) << report("");
    using Open = std::function<int(const std::string& path)>;
    const auto mode = [](::mode_t bits) -> Open {
        return [bits](const auto& path) { return ::chmod(path.c_str(), bits); };
    };
    const auto give = [](::uid_t user, ::gid_t group) -> Open {
        return [=](const auto& path) { return ::chown(path.c_str(), user, group); };
    };
    std::vector<std::tuple<std::string, Open, const char*>> cases{
        {"srv", mode(02770), "chmod go-w"},
        {base + "BIN", mode(02770), "chmod go-w"},
        {base + "SYS/system.ini", mode(0660), "chmod go-w"},
        {base + "SYS/system.ini", mode(0644), "chmod o="},
        {base + "LOG/ERR/261125_err.log", mode(0644), "chmod o="},
        {base + "LOG", mode(02771), "chmod o="},
        {store, mode(0664), "chmod o="},
        {base + "HLP/help.hlp", addToAccessList, "setfacl"}};
    if (canBeAnotherUser()) {
        EXPECT_NE(report("setpriv --reuid=65534 --regid=65534 --clear-groups ").find("TBL_CUSTOMER_INFO: 6 rows"),
                  std::string::npos)
            << "a clerk can check too";
        cases.insert(cases.begin(), {{base + "BIN/KELT_COS.EXE", give(kAnotherUser, kAnotherUser), "chown"},
                                     {base + "IMG/1/a.jpg", give(0, 0), "chgrp"}});
    }
    for (const auto& [path, open, told] : cases) {
        ASSERT_EQ(open(folder.file(path)), 0) << path;
        const std::string out = report("");
        const std::size_t at = out.find(folder.file(path) + ": ");
        ASSERT_NE(at, std::string::npos) << path << "\n" << out;
        EXPECT_NE(out.substr(at, out.find('\n', at) - at).find(told), std::string::npos) << out;
        close();
    }
}

}  // namespace
}  // namespace orv
