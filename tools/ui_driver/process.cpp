#include "process.h"

#include <fcntl.h>
#include <poll.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <csignal>
#include <cstdlib>
#include <stdexcept>

namespace ui_driver {
namespace {

// The user id of "nobody", which has no rights on any Unix.
constexpr uid_t kNobody = 65534;

[[noreturn]] void become(const std::vector<std::string>& command, const Environment& extra) {
    for (const auto& [name, value] : extra) {
        setenv(name.c_str(), value.c_str(), 1);
    }
    std::vector<char*> arguments;
    for (const std::string& argument : command) {
        arguments.push_back(const_cast<char*>(argument.c_str()));
    }
    arguments.push_back(nullptr);
    execvp(arguments.front(), arguments.data());
    _exit(127);
}

int toExitCode(int status) { return WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status); }

}  // namespace

Process::Process(const std::vector<std::string>& command, const Environment& extra) : pid_(fork()) {
    if (pid_ < 0) {
        throw std::runtime_error("no process could be started");
    }
    if (pid_ == 0) {
        become(command, extra);
    }
}

Process::~Process() {
    if (running()) {
        signal(SIGKILL);
        wait(std::chrono::minutes(1));
    }
}

bool Process::running() { return !wait(std::chrono::milliseconds(0)); }

std::optional<int> Process::wait(std::chrono::milliseconds most) {
    if (ended_) {
        return ended_;
    }
    pollfd end{.fd = static_cast<int>(syscall(SYS_pidfd_open, pid_, 0)), .events = POLLIN, .revents = 0};
    poll(&end, 1, static_cast<int>(most.count()));
    close(end.fd);
    int status = 0;
    if (waitpid(pid_, &status, WNOHANG) == pid_) {
        ended_ = toExitCode(status);
    }
    return ended_;
}

void Process::signal(int number) {
    if (!ended_) {
        kill(pid_, number);
    }
}

std::string readOutput(const std::vector<std::string>& command, const Environment& extra) {
    std::array<int, 2> ends{};
    if (pipe2(ends.data(), O_CLOEXEC) != 0) {
        throw std::runtime_error("no pipe");
    }
    const pid_t child = fork();
    if (child == 0) {
        dup2(ends[1], STDOUT_FILENO);
        become(command, extra);
    }
    close(ends[1]);
    std::string text;
    std::array<char, 4096> buffer{};
    for (ssize_t got = 0; (got = read(ends[0], buffer.data(), buffer.size())) > 0;) {
        text.append(buffer.data(), static_cast<std::size_t>(got));
    }
    close(ends[0]);
    waitpid(child, nullptr, 0);
    while (text.ends_with('\n')) {
        text.pop_back();
    }
    return text;
}

std::vector<std::string> unprivileged(const std::vector<std::string>& command) {
    std::vector<std::string> bound;
    if (geteuid() == 0) {
        const std::string user = std::to_string(kNobody);
        bound = {"setpriv", "--reuid=" + user, "--regid=" + user, "--clear-groups"};
    }
    bound.insert(bound.end(), command.begin(), command.end());
    return bound;
}

void giveToUnprivileged(const std::filesystem::path& folder) {
    if (geteuid() == 0) {
        const std::string user = std::to_string(kNobody);
        readOutput({"chown", "-R", user + ":" + user, folder.string()});
    }
}

}  // namespace ui_driver
