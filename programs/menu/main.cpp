#include <windows.h>

#include <array>
#include <ctime>
#include <filesystem>
#include <fstream>
#include <iomanip>

/// Takes the place of the suite's menu in an office without the suite, like the script KELT_MENU.EXE on Linux: logs
/// each start with its time and arguments, and ends. Without a menu the program cannot be left.
int main(int argc, char* argv[]) {
    std::array<wchar_t, 1 << 15> own{};
    ::GetModuleFileNameW(nullptr, own.data(), static_cast<DWORD>(own.size() - 1));
    const std::filesystem::path office = std::filesystem::path(own.data()).parent_path().parent_path();
    const std::time_t now = std::time(nullptr);
    std::ofstream log(office / "LOG" / "menu_started.log", std::ios::app);
    log << std::put_time(std::localtime(&now), "%Y/%m/%d %H:%M:%S");
    for (int i = 1; i < argc; ++i) {
        log << ' ' << argv[i];
    }
    log << std::endl;
    return log ? 0 : 1;
}
