#include "adapters/posix/posix_starter.h"

#include <fcntl.h>
#include <linux/close_range.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <csignal>

#include "adapters/machine/found_program.h"
#include "platform/ascii.h"
#include "platform/run_time_error.h"

namespace orv {
namespace {

std::vector<std::string> splitArguments(std::string_view text) {
    std::vector<std::string> arguments;
    bool quoted = false;
    bool inside = false;
    for (const char c : text) {
        const bool parts = !quoted && kBlanksAndTabs.find(c) != std::string_view::npos;
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

/// Writes the reason to the pipe, at whose other end the parent waits.
[[noreturn]] void giveUp(int pipeEnd, int error) {
    [[maybe_unused]] const ssize_t count = ::write(pipeEnd, &error, sizeof error);
    ::_exit(127);
}

/// Everything that exec needs, prepared before the fork.
struct Start {
    const char* program;
    char* const* arguments;
    char* const* environment;
    int lifeLine;
};

/// Runs in the child. Only functions that are allowed between fork and exec can be called.
[[noreturn]] void become(const Start& start, int pipeEnd) {
    sigset_t none;
    ::sigemptyset(&none);
    ::sigprocmask(SIG_SETMASK, &none, nullptr);
    ::signal(SIGPIPE, SIG_DFL);
    const int nothing = ::open("/dev/null", O_RDONLY | O_CLOEXEC);
    if (nothing >= 0) {
        ::dup2(nothing, STDIN_FILENO);
    }
    ::close_range(STDERR_FILENO + 1, ~0U, CLOSE_RANGE_CLOEXEC);
    if (start.lifeLine >= 0) {
        ::fcntl(start.lifeLine, F_SETFD, 0);
    }
    ::execve(start.program, start.arguments, start.environment);
    giveUp(pipeEnd, errno);
}

/// Runs in a child that exits at once, so that its own child has no parent here and never becomes a zombie.
[[noreturn]] void leaveGrandchild(const Start& start, int pipeEnd) {
    ::setsid();
    const pid_t grandchild = ::fork();
    if (grandchild < 0) {
        giveUp(pipeEnd, errno);
    }
    if (grandchild == 0) {
        become(start, pipeEnd);
    }
    ::_exit(0);
}

/// True if the program runs: after a successful exec the pipe closes without a message.
bool isSilent(int pipeEnd) {
    int error = 0;
    ssize_t count = 0;
    do {
        count = ::read(pipeEnd, &error, sizeof error);
    } while (count < 0 && errno == EINTR);
    return count == 0;
}

bool launch(const Start& start) {
    std::array<int, 2> ends{};
    if (::pipe2(ends.data(), O_CLOEXEC) != 0) {
        return false;
    }
    const pid_t child = ::fork();
    if (child == 0) {
        leaveGrandchild(start, ends[1]);
    }
    ::close(ends[1]);
    const bool runs = child > 0 && isSilent(ends[0]);
    ::close(ends[0]);
    while (child > 0 && ::waitpid(child, nullptr, 0) < 0 && errno == EINTR) {
    }
    return runs;
}

/// Returns this program's environment with some values replaced.
std::vector<std::string> environmentWith(const std::vector<std::string>& own) {
    std::vector<std::string> all = own;
    for (char** entry = environ; *entry != nullptr; ++entry) {
        const std::string_view text = *entry;
        const std::string_view name = text.substr(0, text.find('=') + 1);
        if (std::none_of(own.begin(), own.end(), [&](const std::string& value) { return value.starts_with(name); })) {
            all.emplace_back(text);
        }
    }
    return all;
}

/// Returns pointers into `words` and a null at the end, as exec requires.
std::vector<char*> pointersTo(std::vector<std::string>& words) {
    std::vector<char*> pointers;
    for (auto& word : words) {
        pointers.push_back(word.data());
    }
    pointers.push_back(nullptr);
    return pointers;
}

}  // namespace

void PosixStarter::startWith(const std::string& commandLine, const Extras& extras) const {
    const auto command = findProgram(commandLine, [this](const std::string& path) { return fileAt(path); });
    if (!command) {
        throw RunTimeError(Failure::FileNotFound);
    }
    std::vector<std::string> words = splitArguments(command->arguments);
    words.insert(words.begin(), command->program);
    std::vector<std::string> values = environmentWith(extras.environment);
    const std::vector<char*> arguments = pointersTo(words);
    const std::vector<char*> environment = pointersTo(values);
    if (!launch({command->program.c_str(), arguments.data(), environment.data(), extras.lifeLine})) {
        throw RunTimeError(Failure::FileNotFound);
    }
}

std::optional<std::string> PosixStarter::fileAt(const std::string& path) const {
    const std::string native = paths_.toNative(path);
    return isRegular(native) ? std::optional(native) : std::nullopt;
}

}  // namespace orv
