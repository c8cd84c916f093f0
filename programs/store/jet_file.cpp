#include "jet_file.h"

#include <fcntl.h>
#include <poll.h>
#include <sys/mman.h>
#include <sys/prctl.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <charconv>
#include <csignal>
#include <cstring>
#include <fstream>
#include <span>

#include "jet_reader.h"
#include "keeper.h"
#include "platform/scope.h"
#include "reader_jail.h"

namespace orv {
namespace {

constexpr ::rlim_t kSeconds = 60;
constexpr ::rlim_t kMemory = ::rlim_t{512} << 20U;  // in addition to this program's memory at its start
constexpr std::size_t kMost = std::size_t{512} << 20U;
constexpr std::size_t kHead = 5;
constexpr int kNotLockedUp = 9;

::rlim_t memoryInUse() {
    ::rlim_t pages = 0;
    std::ifstream("/proc/self/statm") >> pages;
    return pages * static_cast<::rlim_t>(::sysconf(_SC_PAGESIZE));
}

void limit(int what, ::rlim_t most) {
    const ::rlimit both{most, most};
    ::setrlimit(static_cast<decltype(RLIMIT_CPU)>(what), &both);
}

/// Returns the file's bytes, or none if it cannot be read. If the file is truncated during use, the process ends.
std::span<char> mapped(const std::string& path) {
    const int file = ::open(path.c_str(), O_RDONLY | O_CLOEXEC);
    struct stat facts {};
    if (file < 0 || ::fstat(file, &facts) != 0 || facts.st_size <= 0) {
        return {};
    }
    const auto size = static_cast<std::size_t>(facts.st_size);
    void* const bytes = ::mmap(nullptr, size, PROT_READ | PROT_WRITE, MAP_PRIVATE, file, 0);
    ::close(file);
    return bytes == MAP_FAILED ? std::span<char>() : std::span(static_cast<char*>(bytes), size);
}

[[noreturn]] void readInChild(const std::string& path, const std::vector<std::string>& tables, int descriptor) {
    ::prctl(PR_SET_PDEATHSIG, SIGKILL);
    const std::span<char> bytes = mapped(path);
    prepareJetReading();
    limit(RLIMIT_CPU, kSeconds);
    limit(RLIMIT_AS, memoryInUse() + kMemory);
    limit(RLIMIT_FSIZE, 0);
    limit(RLIMIT_CORE, 0);
    ::dup2(::open("/dev/null", O_WRONLY | O_CLOEXEC), STDERR_FILENO);  // discards the library's messages
    if (!lockUp(descriptor)) {
        ::_exit(kNotLockedUp);
    }
    sendJetTables(bytes, tables, descriptor);
    ::_exit(0);
}

/// The reading process and its output.
class Reading : NonCopyable {
public:
    Reading(const std::string& path, const std::vector<std::string>& tables, std::chrono::milliseconds longest)
        : deadline_(Clock::now() + longest) {
        std::array<int, 2> ends{};
        if (::pipe2(ends.data(), O_CLOEXEC) != 0) {
            throw KeeperFailure(std::string("no pipe: ") + std::strerror(errno));
        }
        input_ = ends[0];
        child_ = ::fork();
        if (child_ == 0) {
            readInChild(path, tables, ends[1]);
        }
        ::close(ends[1]);
        if (child_ < 0) {
            throw KeeperFailure(std::string("no second process: ") + std::strerror(errno));
        }
    }
    ~Reading() {
        ::close(input_);
        if (child_ > 0) {
            ::kill(child_, SIGKILL);
            ::waitpid(child_, nullptr, 0);
        }
    }

    /// Returns all output if the process has ended without a failure.
    std::string all() {
        std::string bytes;
        std::array<char, 65536> piece{};
        for (ssize_t got = 1; got != 0;) {
            waitForInput();
            got = ::read(input_, piece.data(), piece.size());
            if (got < 0 && errno != EINTR) {
                throw KeeperFailure(std::string("reading: ") + std::strerror(errno));
            }
            bytes.append(piece.data(), static_cast<std::size_t>(std::max<ssize_t>(got, 0)));
            if (bytes.size() > kMost) {
                throw KeeperFailure("damaged: it yields more than a file of its kind can hold");
            }
        }
        requireGoodEnd();
        return bytes;
    }

private:
    using Clock = std::chrono::steady_clock;

    void waitForInput() const {
        pollfd input{input_, POLLIN, 0};
        int ready = 0;
        do {
            const auto left = std::chrono::ceil<std::chrono::milliseconds>(deadline_ - Clock::now()).count();
            ready = ::poll(&input, 1, static_cast<int>(std::max<std::int64_t>(left, 0)));
        } while (ready < 0 && errno == EINTR);
        if (ready == 0) {
            throw KeeperFailure("reading it does not end");
        }
    }

    void requireGoodEnd() {
        int status = 0;
        while (::waitpid(child_, &status, 0) < 0 && errno == EINTR) {
        }
        child_ = -1;
        if (WIFEXITED(status) && WEXITSTATUS(status) == kNotLockedUp) {
            throw KeeperFailure("this computer can't keep the process that reads it locked up (seccomp)");
        }
        if (WIFSIGNALED(status) && (WTERMSIG(status) == SIGXCPU || WTERMSIG(status) == SIGKILL)) {
            throw KeeperFailure("damaged: reading it did not end in " + std::to_string(kSeconds) + " seconds");
        }
        if (!WIFEXITED(status) || WEXITSTATUS(status) != 0) {
            throw KeeperFailure("damaged: reading it broke off");
        }
    }

    Clock::time_point deadline_;
    int input_ = -1;
    ::pid_t child_ = -1;
};

/// Parses the frames and checks every length in them.
class Frames {
public:
    explicit Frames(std::string bytes) : bytes_(std::move(bytes)) {}

    JetFile file() {
        while (next()) {
            handleFrame();
        }
        if (kind_ != JetFrame::End) {
            throw KeeperFailure("damaged: reading it broke off");
        }
        return std::move(file_);
    }

private:
    bool next() {
        const std::string_view rest = std::string_view(bytes_).substr(at_);
        std::uint32_t length = 0;
        if (rest.size() < kHead) {
            return false;
        }
        kind_ = static_cast<JetFrame>(rest[0]);
        std::memcpy(&length, rest.data() + 1, sizeof length);
        content_ = rest.substr(kHead, length);
        at_ += kHead + content_.size();
        return content_.size() == length && kind_ != JetFrame::End;
    }

    void handleFrame() {
        switch (kind_) {
            case JetFrame::Version:
                file_.version = firstByte();
                break;
            case JetFrame::Table:
                file_.tables.push_back({.name = std::string(content_), .columns = {}, .rows = {}});
                break;
            case JetFrame::Rows:
                std::from_chars(content_.data(), content_.data() + content_.size(), table().statedRows);
                break;
            case JetFrame::Column:
                table().columns.push_back({std::string(content_.substr(1)), static_cast<JetType>(firstByte())});
                break;
            case JetFrame::Row:
                table().rows.emplace_back();
                break;
            case JetFrame::Null:
                addCell(JetCell::State::Null);
                break;
            case JetFrame::Bytes:
                addCell(JetCell::State::Held);
                break;
            case JetFrame::Unread:
                addCell(JetCell::State::Unread);
                ++table().broken;
                break;
            case JetFrame::Broken:
                ++table().broken;
                break;
            case JetFrame::Refusal:
            case JetFrame::End:
                throw KeeperFailure("damaged: " + std::string(content_));
        }
    }

    JetTable& table() { return file_.tables.at(file_.tables.size() - 1); }
    void addCell(JetCell::State state) {
        table().rows.at(table().rows.size() - 1).push_back({state, std::string(content_)});
    }
    char firstByte() const { return std::string(content_).at(0); }

    std::string bytes_;
    std::size_t at_ = 0;
    JetFrame kind_ = JetFrame::Version;
    std::string_view content_;
    JetFile file_;
};

}  // namespace

JetFile readJetFile(const std::string& path, const std::vector<std::string>& tables,
                    std::chrono::milliseconds longest) {
    try {
        return Frames(Reading(path, tables, longest).all()).file();
    } catch (const KeeperFailure& failure) {
        throw KeeperFailure(path + ": " + failure.what());
    }
}

}  // namespace orv
