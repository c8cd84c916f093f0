#include "adapters/win32/control_windows.h"

#include <gtest/gtest.h>

#include <thread>

#include "adapters/text/cp932.h"
#include "adapters/win32/sibling_windows.h"
#include "adapters/win32/wide_text.h"
#include "support/temp_office.h"

namespace orv {
namespace {

HWND findWindow(std::uint32_t handle) {
    return reinterpret_cast<HWND>(static_cast<std::intptr_t>(static_cast<std::int32_t>(handle)));
}

/// Handles the messages of this thread's windows while another thread acts as a sibling program.
void whileAnotherProgram(const std::function<void()>& acts) {
    const DWORD receiver = ::GetCurrentThreadId();
    std::jthread other([&] {
        acts();
        ::PostThreadMessageW(receiver, WM_QUIT, 0, 0);
    });
    MSG message{};
    while (::GetMessageW(&message, nullptr, 0, 0) > 0) ::DispatchMessageW(&message);
}

class ControlWindowsTest : public testing::Test {
protected:
    ControlWindowsTest() {
        controls.onText = [this](std::uint32_t handle, const std::string& text) {
            happened += (handle == field ? "T[" : "?[") + text + "]";
            return true;
        };
        controls.onKey = [this](std::uint32_t handle, int key) {
            happened += (handle == button ? "K" : "?") + std::to_string(key);
            return true;
        };
    }

    ControlWindows controls;
    std::uint32_t field = controls.allocate();
    std::uint32_t button = controls.allocate();
    std::string happened;
};

TEST_F(ControlWindowsTest, TextsAndKeysReachTheControls) {
    const std::string bytes = Cp932().encode("港区ｱ");
    whileAnotherProgram([&] {
        EXPECT_EQ(::SendMessageW(findWindow(field), WM_SETTEXT, 0, reinterpret_cast<LPARAM>(L"東京都 港区")), TRUE);
        if (::GetACP() == 932)
            ::SendMessageA(findWindow(field), WM_SETTEXT, 0, reinterpret_cast<LPARAM>(bytes.c_str()));
        ::SendMessageW(findWindow(field), WM_SETTEXT, 0, 0);
        ::SendMessageW(findWindow(button), WM_KEYDOWN, VK_RETURN, 0);
        ::PostMessageW(findWindow(button), WM_KEYDOWN, VK_SPACE, 0);
    });
    EXPECT_EQ(happened, std::string("T[東京都 港区]") + (::GetACP() == 932 ? "T[港区ｱ]" : "") + "T[]K13K32");
}

TEST_F(ControlWindowsTest, AReleasedControlOrAnEndedSearchReceivesNothing) {
    controls.release(field);
    controls.onKey = nullptr;
    whileAnotherProgram([&] {
        EXPECT_EQ(::IsWindow(findWindow(field)), FALSE);
        EXPECT_EQ(::SendMessageW(findWindow(field), WM_SETTEXT, 0, reinterpret_cast<LPARAM>(L"x")), 0);
        ::SendMessageW(findWindow(button), WM_KEYDOWN, VK_RETURN, 0);
    });
    EXPECT_EQ(happened, "");
}

/// A program that posts its last key and ends has not been cancelled.
TEST_F(ControlWindowsTest, TheLastMessageOfAProgramThatHasEndedCounts) {
    const TempOffice office;
    const Win32Starter starter(office.paths());
    std::function<void()> ended;
    SiblingWindows windows(starter, [&ended](HANDLE process, std::function<void()> signalled) {
        EXPECT_EQ(::WaitForSingleObject(process, 180'000), WAIT_OBJECT_0);
        ended = std::move(signalled);
        return std::shared_ptr<void>();
    });
    button = controlHandles().allocate();
    std::filesystem::copy_file(ECHO_PROGRAM, office.file("C/ORV/BIN/KELT_ADD.EXE"));
    for (const bool finished : {true, false}) {
        happened.clear();
        windows.start("KELT_ADD.EXE 1,2", {.setText = [](auto, const auto&) { return false; },
                                           .pressKey =
                                               [&](std::uint32_t, int key) {
                                                   happened += "K" + std::to_string(key);
                                                   windows.dismiss();
                                                   return true;
                                               },
                                           .gone = [this] { happened += "gone"; }});
        if (finished) ::PostMessageW(findWindow(button), WM_KEYDOWN, VK_RETURN, 0);
        ended();
        ::SendMessageW(findWindow(button), WM_KEYDOWN, VK_RETURN, 0);
        EXPECT_EQ(happened, finished ? "K13" : "gone");
    }
    EXPECT_EQ(catchFailure([&] { windows.start("NO.EXE", {}); }), 53);
}

}  // namespace
}  // namespace orv
