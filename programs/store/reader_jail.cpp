#include "reader_jail.h"

#include <linux/audit.h>
#include <linux/filter.h>
#include <linux/seccomp.h>
#include <sys/mman.h>
#include <sys/prctl.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

namespace orv {
namespace {

#if defined(__x86_64__)
constexpr std::uint32_t kMachine = AUDIT_ARCH_X86_64;
constexpr auto kStat = std::to_array<std::uint32_t>({__NR_fstat, __NR_newfstatat});
#elif defined(__aarch64__)
constexpr std::uint32_t kMachine = AUDIT_ARCH_AARCH64;
constexpr auto kStat = std::to_array<std::uint32_t>({__NR_fstat, __NR_newfstatat});
#else
#error "the numbers of this machine's system calls are not known here"
#endif

constexpr auto kAllowed =
    std::to_array<std::uint32_t>({__NR_read, __NR_pread64, __NR_lseek, __NR_close, __NR_brk, __NR_munmap, __NR_mremap,
                                  __NR_madvise, __NR_futex, __NR_rt_sigreturn, __NR_exit, __NR_exit_group});

#if defined(__SANITIZE_ADDRESS__)
constexpr auto kRuntime = std::to_array<std::uint32_t>({__NR_sigaltstack});  // the sanitizer's at the end
#else
constexpr std::array<std::uint32_t, 0> kRuntime{};
#endif

constexpr std::uint32_t argument(std::size_t place) {
    return static_cast<std::uint32_t>(offsetof(seccomp_data, args) + place * sizeof(std::uint64_t));  // its lower half
}

class Filter {
public:
    explicit Filter(int output) {
        load(offsetof(seccomp_data, arch));
        endUnless(kMachine, SECCOMP_RET_KILL_PROCESS);
        load(offsetof(seccomp_data, nr));
        allow(kAllowed);
        allow(kStat);
        allow(kRuntime);
        allowWrite({static_cast<std::uint32_t>(output), STDERR_FILENO});
        allowPlainMemory(__NR_mmap);
        allowPlainMemory(__NR_mprotect);
        end(SECCOMP_RET_KILL_PROCESS);
    }

    bool install() {
        const sock_fprog program{static_cast<unsigned short>(code_.size()), code_.data()};
        return ::prctl(PR_SET_SECCOMP, SECCOMP_MODE_FILTER, &program) == 0;
    }

private:
    void add(unsigned code, std::uint32_t value, std::size_t yes = 0, std::size_t no = 0) {
        code_.push_back(
            {static_cast<std::uint16_t>(code), static_cast<std::uint8_t>(yes), static_cast<std::uint8_t>(no), value});
    }
    void load(std::size_t offset) { add(BPF_LD | BPF_W | BPF_ABS, static_cast<std::uint32_t>(offset)); }
    void end(std::uint32_t verdict) { add(BPF_RET | BPF_K, verdict); }
    void endIf(std::uint32_t value, std::uint32_t verdict) {
        add(BPF_JMP | BPF_JEQ | BPF_K, value, 0, 1);
        end(verdict);
    }
    void allow(std::span<const std::uint32_t> calls) {
        for (const std::uint32_t call : calls) {
            endIf(call, SECCOMP_RET_ALLOW);
        }
    }
    void endUnless(std::uint32_t value, std::uint32_t verdict) {
        add(BPF_JMP | BPF_JEQ | BPF_K, value, 1, 0);
        end(verdict);
    }

    /// These steps replace the call's number with an argument, so they end in a decision. No later step can use the
    /// number.
    void allowWrite(std::array<std::uint32_t, 2> descriptors) {
        constexpr std::size_t kSteps = 6;
        add(BPF_JMP | BPF_JEQ | BPF_K, __NR_write, 0, kSteps);
        load(argument(0));
        endIf(descriptors[0], SECCOMP_RET_ALLOW);
        endIf(descriptors[1], SECCOMP_RET_ALLOW);
        end(SECCOMP_RET_KILL_PROCESS);
    }

    void allowPlainMemory(std::uint32_t call) {
        constexpr std::size_t kSteps = 4;
        add(BPF_JMP | BPF_JEQ | BPF_K, call, 0, kSteps);
        load(argument(2));
        add(BPF_JMP | BPF_JSET | BPF_K, PROT_EXEC, 0, 1);
        end(SECCOMP_RET_KILL_PROCESS);
        end(SECCOMP_RET_ALLOW);
    }

    std::vector<sock_filter> code_;
};

}  // namespace

bool lockUp(int output) {
    return ::prctl(PR_SET_DUMPABLE, 0) == 0 && ::prctl(PR_SET_NO_NEW_PRIVS, 1, 0, 0, 0) == 0 &&
           Filter(output).install();
}

}  // namespace orv
