#pragma once

#include <atomic>
#include <filesystem>
#include <memory>
#include <string>
#include <thread>
#include <vector>

#include "platform/machine/file_system.h"
#include "platform/run_time_error.h"
#include "suite_server.h"

namespace orv {

/// A folder that goes with the test.
class TemporaryFolder {
public:
    TemporaryFolder();
    ~TemporaryFolder();
    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;

    std::filesystem::path path;
};

/// The suite's server on a port of its own, in a thread of the test.
class RunningSuite {
public:
    explicit RunningSuite(const std::filesystem::path& folder);
    ~RunningSuite();

    std::string url(const std::string& path) const { return "http://127.0.0.1:" + std::to_string(port_) + path; }
    int port() const { return port_; }
    void misbehave(const std::string& instruction);
    std::string log() const;

private:
    std::filesystem::path folder_;
    SuiteServer server_;
    int port_;
    std::thread thread_;
};

/// Answers every connection with the same bytes, whatever they are, and closes it; keeps what it was sent.
class RawServer {
public:
    /// `silent`: takes the request and holds the connection without a word.
    explicit RawServer(std::string answer, bool silent = false);
    ~RawServer();
    RawServer(const RawServer&) = delete;
    RawServer& operator=(const RawServer&) = delete;

    std::string url(const std::string& path = "/") const { return "http://127.0.0.1:" + std::to_string(port_) + path; }
    /// Head and body of each request so far. Call it when the client has its answer.
    const std::vector<std::string>& requests() const { return requests_; }

private:
    void serve();
    void converse(int client);

    std::string answer_;
    bool silent_;
    int port_ = 0;
    int listener_;
    std::atomic<bool> stopping_{false};
    std::vector<std::string> requests_;
    std::thread thread_;
};

/// A URL at which nobody listens.
std::string deafUrl();

/// The files of one folder, as C:\NAME.
class FolderFiles : public FileSystem {
public:
    explicit FolderFiles(std::filesystem::path folder) : folder_(std::move(folder)) {}
    std::string nativePath(const std::string& path) const override { return folder_ / path.substr(3); }

    bool exists(const std::string&) const override { throw RunTimeError(Failure::Internal); }
    std::uint64_t sizeOf(const std::string&) const override { throw RunTimeError(Failure::Internal); }
    bool canOpen(const std::string&) const override { throw RunTimeError(Failure::Internal); }
    void copy(const std::string&, const std::string&) override { throw RunTimeError(Failure::Internal); }
    void remove(const std::string&) override { throw RunTimeError(Failure::Internal); }
    void rename(const std::string&, const std::string&) override { throw RunTimeError(Failure::Internal); }
    void append(const std::string&, const std::string&) override { throw RunTimeError(Failure::Internal); }
    std::string read(const std::string&, std::size_t) const override { throw RunTimeError(Failure::Internal); }
    std::string programFolder() const override { throw RunTimeError(Failure::Internal); }

private:
    std::filesystem::path folder_;
};

std::string contentOf(const std::filesystem::path& file);
void writeFile(const std::filesystem::path& file, const std::string& bytes);

/// What `act` raises; number 0 where it raises nothing.
template <typename Act>
RunTimeError raisedBy(Act act) {
    try {
        act();
    } catch (const RunTimeError& failure) {
        return failure;
    }
    return {0, ""};
}

}  // namespace orv
