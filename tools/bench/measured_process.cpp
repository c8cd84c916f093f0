#include "measured_process.h"

#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <stdexcept>

#include "bench.h"

namespace bench {

Measured measured(const std::string& command) {
    int status = 0;
    struct rusage usage {};
    const double milliseconds = timed([&] {
        const pid_t child = fork();
        if (child == 0) {
            execl("/bin/sh", "sh", "-c", command.c_str(), nullptr);
            _exit(127);
        }
        wait4(child, &status, 0, &usage);
    });
    if (status != 0) {
        throw std::runtime_error("failed: " + command);
    }
    const auto inMilliseconds = [](const timeval& time) {
        return 1000.0 * static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_usec) / 1000;
    };
    return {milliseconds, inMilliseconds(usage.ru_utime) + inMilliseconds(usage.ru_stime),
            static_cast<double>(usage.ru_maxrss) / 1024};
}

}  // namespace bench
