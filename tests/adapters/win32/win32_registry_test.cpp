#include "adapters/system/system_registry.h"

#include <gtest/gtest.h>

#include "adapters/text/cp932.h"

namespace orv {
namespace {

/// A key of the machine in the real registry, which has one for each view.
class RegistryViews : public testing::Test {
protected:
    ~RegistryViews() override {
        for (const REGSAM view : {KEY_WOW64_64KEY, KEY_WOW64_32KEY}) {
            ::RegDeleteKeyExW(HKEY_LOCAL_MACHINE, L"SOFTWARE\\orv-test", view, 0);
        }
    }
    void put(REGSAM view, const wchar_t* name, const std::wstring& text) {
        HKEY key = nullptr;
        ::RegCreateKeyExW(HKEY_LOCAL_MACHINE, L"SOFTWARE\\orv-test", 0, nullptr, 0, KEY_WRITE | view, nullptr, &key,
                          nullptr);
        ::RegSetValueExW(key, name, 0, REG_SZ, reinterpret_cast<const BYTE*>(text.c_str()),
                         static_cast<DWORD>((text.size() + 1) * sizeof(wchar_t)));
        ::RegCloseKey(key);
    }
    std::string value() {
        Registry::Handle key = 0;
        std::string text = "none";
        registry.RegOpenKeyEx(Registry::kLocalMachine, "SOFTWARE\\orv-test", KEY_READ, key);
        registry.RegQueryValueEx(key, "installkey", text, 1024);
        registry.RegCloseKey(key);
        return text;
    }

    Cp932 codePage;
    SystemRegistry registry{"", codePage};
};

TEST_F(RegistryViews, TheLargerOneIsReadFirstAndTheSmallerOneGetsNewKeys) {
    Registry::Handle created = 0;
    if (registry.RegCreateKeyEx(Registry::kLocalMachine, "SOFTWARE\\orv-test", KEY_WRITE, created) != 0) {
        GTEST_SKIP() << "needs the rights of an administrator";
    }
    EXPECT_EQ(registry.RegCloseKey(created), 0);
    HKEY absent = nullptr;
    EXPECT_NE(::RegOpenKeyExW(HKEY_LOCAL_MACHINE, L"SOFTWARE\\orv-test", 0, KEY_READ | KEY_WOW64_64KEY, &absent), 0);
    EXPECT_EQ(value(), "none");
    put(KEY_WOW64_32KEY, L"InstallKey", L"C:\\ＯＲＶ");
    EXPECT_EQ(value(), "C:\\ＯＲＶ");
    put(KEY_WOW64_64KEY, L"Other", L"x");
    EXPECT_EQ(value(), "C:\\ＯＲＶ") << "the key is in both views, the value in one";
    put(KEY_WOW64_64KEY, L"InstallKey", L"D:\\ORV");
    EXPECT_EQ(value(), "D:\\ORV");
}

}  // namespace
}  // namespace orv
