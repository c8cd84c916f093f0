#include "adapters/posix/posix_starter.h"

#include <fcntl.h>
#include <linux/close_range.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <climits>
#include <csignal>

#include "adapters/posix/ascii.h"
#include "platform/run_time_error.h"

namespace orv {
namespace {

constexpr std::string_view kBlanks = " \t";

std::vector<std::string> splitArguments(std::string_view text) {
    std::vector<std::string> arguments;
    bool quoted = false;
    bool inside = false;
    for (const char c : text) {
        const bool parts = !quoted && kBlanks.find(c) != std::string_view::npos;
        if (!parts && !inside) {
            arguments.emplace_back();
        }
        inside = !parts;
        if (c == '"') {
            quoted = !quoted;
        } else if (inside) {
            arguments.back() += c;
        }
    }
    return arguments;
}

bool isRegular(const std::string& nativePath) {
    struct stat facts {};
    return ::stat(nativePath.c_str(), &facts) == 0 && S_ISREG(facts.st_mode);
}

bool hasExtension(std::string_view name) {
    return name.substr(name.find_last_of("\\/:") + 1).find('.') != std::string_view::npos;
}

/// Tells the one who waits at the pipe why the program does not run.
[[noreturn]] void giveUp(int pipeEnd, int error) {
    [[maybe_unused]] const ssize_t count = ::write(pipeEnd, &error, sizeof error);
    ::_exit(127);
}

/// In the child: only what may be called between fork and exec.
[[noreturn]] void become(const char* program, char* const* arguments, int pipeEnd) {
    sigset_t none;
    ::sigemptyset(&none);
    ::sigprocmask(SIG_SETMASK, &none, nullptr);
    ::signal(SIGPIPE, SIG_DFL);
    const int nothing = ::open("/dev/null", O_RDONLY | O_CLOEXEC);
    if (nothing >= 0) {
        ::dup2(nothing, STDIN_FILENO);
    }
    ::close_range(STDERR_FILENO + 1, ~0U, CLOSE_RANGE_CLOEXEC);
    ::execv(program, arguments);
    giveUp(pipeEnd, errno);
}

/// A child that leaves at once, so that its own child belongs to nobody and never becomes a zombie of ours.
[[noreturn]] void leaveGrandchild(const char* program, char* const* arguments, int pipeEnd) {
    ::setsid();
    const pid_t grandchild = ::fork();
    if (grandchild < 0) {
        giveUp(pipeEnd, errno);
    }
    if (grandchild == 0) {
        become(program, arguments, pipeEnd);
    }
    ::_exit(0);
}

/// Whether the program runs: the pipe closes without a word when exec has worked.
bool isSilent(int pipeEnd) {
    int error = 0;
    ssize_t count = 0;
    do {
        count = ::read(pipeEnd, &error, sizeof error);
    } while (count < 0 && errno == EINTR);
    return count == 0;
}

bool launch(const char* program, char* const* arguments) {
    std::array<int, 2> ends{};
    if (::pipe2(ends.data(), O_CLOEXEC) != 0) {
        return false;
    }
    const pid_t child = ::fork();
    if (child == 0) {
        leaveGrandchild(program, arguments, ends[1]);
    }
    ::close(ends[1]);
    const bool runs = child > 0 && isSilent(ends[0]);
    ::close(ends[0]);
    while (child > 0 && ::waitpid(child, nullptr, 0) < 0 && errno == EINTR) {
    }
    return runs;
}

}  // namespace

void PosixStarter::start(const std::string& commandLine) {
    const auto command = find(trimBlanks(upToNul(commandLine)));
    if (!command) {
        throw RunTimeError(Failure::FileNotFound);
    }
    std::vector<std::string> words = splitArguments(command->arguments);
    words.insert(words.begin(), command->program);
    std::vector<char*> pointers;
    for (auto& word : words) {
        pointers.push_back(word.data());
    }
    pointers.push_back(nullptr);
    if (!launch(command->program.c_str(), pointers.data())) {
        throw RunTimeError(Failure::FileNotFound);
    }
}

std::optional<PosixStarter::Command> PosixStarter::find(std::string_view line) const {
    if (line.starts_with('"')) {
        const std::size_t end = std::min(line.find('"', 1), line.size());
        const auto program = programFile(line.substr(1, end - 1));
        return program ? std::optional(Command{*program, line.substr(std::min(end + 1, line.size()))}) : std::nullopt;
    }
    for (std::size_t end = 0; end < line.size() && end < PATH_MAX;) {
        end = std::min(line.find_first_of(kBlanks, end + 1), line.size());
        if (const auto program = programFile(line.substr(0, end))) {
            return Command{*program, line.substr(end)};
        }
    }
    return std::nullopt;
}

std::optional<std::string> PosixStarter::programFile(std::string_view name) const {
    if (name.empty()) {
        return std::nullopt;
    }
    const std::string asWritten = paths_.toNative(std::string(name));
    if (isRegular(asWritten)) {
        return asWritten;
    }
    const std::string withExtension = paths_.toNative(std::string(name) + ".EXE");
    return !hasExtension(name) && isRegular(withExtension) ? std::optional(withExtension) : std::nullopt;
}

}  // namespace orv
