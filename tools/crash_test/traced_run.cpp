#include "traced_run.h"

#include <linux/filter.h>
#include <linux/seccomp.h>
#include <sys/prctl.h>
#include <sys/ptrace.h>
#include <sys/socket.h>
#include <sys/syscall.h>
#include <sys/user.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <cstddef>
#include <cstring>
#include <stdexcept>

#include "platform/scope.h"

#ifndef __x86_64__
#error "The registers of a stopped process are known for x86-64 only."
#endif

namespace crash_test {
namespace {

constexpr unsigned kTimeoutSeconds = 900;
constexpr int kEventOver = SIGUSR1;
constexpr int kBeforeCall = SIGTRAP | (PTRACE_EVENT_SECCOMP << 8);
constexpr int kAfterCall = SIGTRAP | 0x80;
constexpr int kThreadMade = SIGTRAP | (PTRACE_EVENT_CLONE << 8);

void require(bool fine, const char* what) {
    if (!fine) {
        throw std::runtime_error(std::string(what) + ": " + std::strerror(errno));
    }
}

class Watched : orv::NonCopyable {
public:
    Watched(const std::vector<std::string>& folders, const Injection& injection, pid_t process)
        : folders_(folders), injection_(injection), process_(process), thread_(process) {}
    ~Watched() {
        if (!ended_) {
            ::kill(process_, SIGKILL);
            ::waitpid(process_, nullptr, 0);
        }
    }

    Outcome watch(const std::function<void()>& onEvent);

private:
    int waitForStop();
    /// Handles the thread's stop and returns the signal with which it continues.
    long handleStop(int status, const std::function<void()>& onEvent);
    void beforeCall();
    void afterCall();
    void inject(const CallKind& kind, user_regs_struct& all);
    bool touches(const std::string& object) const;
    bool counts(const CallKind& kind, unsigned long long size) const;
    bool isInjected(const CallKind& kind, unsigned long long size) {
        return counts(kind, size) && (lasts_ || --injection_.at == 0);
    }
    user_regs_struct registers() const;
    void setRegisters(const user_regs_struct& all) const;

    const std::vector<std::string>& folders_;
    Injection injection_;
    pid_t process_;
    /// The stopped thread. The others run, and wait for this one if they must.
    pid_t thread_;
    Outcome outcome_;
    bool ended_ = false;
    bool lasts_ = false;
    /// The size of the write that is done in two halves, or 0.
    unsigned long long wholeSize_ = 0;
};

bool Watched::touches(const std::string& object) const {
    return object == "socket" ||
           std::ranges::any_of(folders_, [&](const std::string& folder) { return object.starts_with(folder); });
}

bool Watched::counts(const CallKind& kind, unsigned long long size) const {
    using enum Injection::Kind;
    const bool canBeHalved = kind.isWrite && size > 1;
    switch (injection_.kind) {
        case Nothing:
            return false;
        case Kill:
            return true;
        case KillHalfway:
            return canBeHalved;
        case Once:
        case Lasting:
            return canAnswer(kind, injection_.answer);
        case Cut:
            return kind.isTransfer;
        case Halfway:
            return lasts_ ? canAnswer(kind, injection_.answer) : canBeHalved;
    }
    return false;
}

/// Skips the call and returns `value` to the program as its result.
void answer(user_regs_struct& all, long value) {
    all.orig_rax = static_cast<unsigned long long>(-1);
    all.rax = static_cast<unsigned long long>(value);
}

void Watched::beforeCall() {
    user_regs_struct all = registers();
    const CallKind* kind = findKind(static_cast<long>(all.orig_rax));
    const unsigned long long arguments[] = {all.rdi, all.rsi, all.rdx};
    const std::string object = kind == nullptr ? "" : readObject(*kind, process_, arguments);
    if (!touches(object)) {
        return;
    }
    ++outcome_.calls;
    if (isInjected(*kind, all.rdx)) {
        outcome_.injected.push_back(std::string(kind->name) + " " + object);
        inject(*kind, all);
    } else if (kind->isFlush) {
        answer(all, 0);
        setRegisters(all);
    }
}

/// Ends the connection of another process's descriptor, as a network or a server does when it fails.
void cutConnection(pid_t process, int descriptor) {
    const int handle = static_cast<int>(::syscall(SYS_pidfd_open, process, 0));
    const int connection = static_cast<int>(::syscall(SYS_pidfd_getfd, handle, descriptor, 0));
    require(connection >= 0, "the connection of the watched program");
    ::shutdown(connection, SHUT_RDWR);
    ::close(connection);
    ::close(handle);
}

void Watched::inject(const CallKind& kind, user_regs_struct& all) {
    using enum Injection::Kind;
    if (injection_.kind == Kill) {
        ::kill(process_, SIGKILL);
        return;
    }
    if (injection_.kind == Cut) {
        cutConnection(process_, static_cast<int>(all.rdi));
        return;
    }
    if (injection_.kind == KillHalfway || (injection_.kind == Halfway && !lasts_)) {
        wholeSize_ = all.rdx;
        all.rdx /= 2;
    } else {
        answer(all, kind.named == Named::ByPollList ? 0 : -injection_.answer);
    }
    setRegisters(all);
    lasts_ = injection_.kind == Lasting || injection_.kind == Halfway;
}

void Watched::afterCall() {
    if (injection_.kind == Injection::Kind::KillHalfway) {
        ::kill(process_, SIGKILL);
        return;
    }
    user_regs_struct all = registers();
    all.rdx = wholeSize_;
    setRegisters(all);
    wholeSize_ = 0;
}

user_regs_struct Watched::registers() const {
    user_regs_struct all{};
    require(::ptrace(PTRACE_GETREGS, thread_, nullptr, &all) == 0, "registers");
    return all;
}

void Watched::setRegisters(const user_regs_struct& all) const {
    require(::ptrace(PTRACE_SETREGS, thread_, nullptr, &all) == 0, "registers");
}

/// Returns the status of a thread of the watched process. Other threads can end meanwhile.
int Watched::waitForStop() {
    int status = 0;
    do {
        thread_ = ::waitpid(-1, &status, __WALL);
        require(thread_ > 0, "wait");
    } while (!WIFSTOPPED(status) && thread_ != process_);
    return status;
}

long Watched::handleStop(int status, const std::function<void()>& onEvent) {
    if (status >> 8 == kBeforeCall) {
        beforeCall();
    } else if (WSTOPSIG(status) == kAfterCall) {
        afterCall();
    } else if (WSTOPSIG(status) == kEventOver) {
        injection_.kind = lasts_ ? Injection::Kind::Nothing : injection_.kind;
        lasts_ = false;
        onEvent();
    } else if (const bool isOfThreads = status >> 8 == kThreadMade || thread_ != process_; !isOfThreads) {
        return WSTOPSIG(status);
    }
    return 0;
}

Outcome Watched::watch(const std::function<void()>& onEvent) {
    long signal = 0;
    while (true) {
        // A dying thread has no stop to continue from. The end of a call is a stop only if requested.
        static_cast<void>(::ptrace(wholeSize_ > 0 ? PTRACE_SYSCALL : PTRACE_CONT, thread_, nullptr, signal));
        const int status = waitForStop();
        if (!WIFSTOPPED(status)) {
            ended_ = true;
            outcome_.killed = WIFSIGNALED(status) && WTERMSIG(status) == SIGKILL;
            outcome_.fine = WIFEXITED(status) && WEXITSTATUS(status) == 0;
            outcome_.ending = WIFEXITED(status) ? "status " + std::to_string(WEXITSTATUS(status))
                                                : "signal " + std::to_string(WTERMSIG(status));
            return outcome_;
        }
        signal = handleStop(status, onEvent);
    }
}

/// Makes the kernel stop this process only before calls that can matter.
void stopAtCalls(Injection::Kind kind) {
    std::vector<sock_filter> rules{BPF_STMT(BPF_LD | BPF_W | BPF_ABS, offsetof(seccomp_data, nr))};
    for (const long number : kind == Injection::Kind::Nothing ? flushingCalls() : knownCalls()) {
        rules.push_back(BPF_JUMP(BPF_JMP | BPF_JEQ | BPF_K, static_cast<unsigned>(number), 0, 1));
        rules.push_back(BPF_STMT(BPF_RET | BPF_K, SECCOMP_RET_TRACE));
    }
    rules.push_back(BPF_STMT(BPF_RET | BPF_K, SECCOMP_RET_ALLOW));
    const sock_fprog program{static_cast<unsigned short>(rules.size()), rules.data()};
    if (::prctl(PR_SET_NO_NEW_PRIVS, 1, 0, 0, 0) != 0 || ::prctl(PR_SET_SECCOMP, SECCOMP_MODE_FILTER, &program) != 0) {
        ::_exit(errno);
    }
}

/// An exception of `body` ends this process.
[[noreturn]] void runWatched(Injection::Kind kind, const std::function<void()>& body) noexcept {
    ::alarm(kTimeoutSeconds);
    if (::ptrace(PTRACE_TRACEME, 0, nullptr, nullptr) != 0) {
        ::_exit(errno);
    }
    ::raise(SIGSTOP);
    stopAtCalls(kind);
    body();
    ::_exit(0);
}

}  // namespace

void eventIsOver() { ::raise(kEventOver); }

Outcome runTraced(const std::vector<std::string>& folders, const Injection& injection,
                  const std::function<void()>& body, const std::function<void()>& onEvent) {
    const pid_t process = ::fork();
    require(process >= 0, "fork");
    if (process == 0) {
        runWatched(injection.kind, body);
    }
    int status = 0;
    require(::waitpid(process, &status, 0) == process, "wait");
    if (!WIFSTOPPED(status)) {
        errno = WIFEXITED(status) ? WEXITSTATUS(status) : EPERM;
        require(false, "this machine does not let a program watch another one (ptrace)");
    }
    constexpr long kOptions = PTRACE_O_TRACESYSGOOD | PTRACE_O_TRACESECCOMP | PTRACE_O_TRACECLONE | PTRACE_O_EXITKILL;
    require(::ptrace(PTRACE_SETOPTIONS, process, nullptr, kOptions) == 0, "ptrace");
    return Watched(folders, injection, process).watch(onEvent);
}

}  // namespace crash_test
