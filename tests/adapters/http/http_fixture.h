#pragma once

#include <atomic>
#include <filesystem>
#include <memory>
#include <string>
#include <thread>
#include <vector>

#include "platform/run_time_error.h"
#include "suite_server.h"
#include "support/native_paths.h"
#include "support/temp_folder.h"

namespace orv {

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
class FolderFiles : public NativePaths {
public:
    explicit FolderFiles(std::filesystem::path folder) : folder_(std::move(folder)) {}
    std::string nativePath(const std::string& path) const override { return folder_ / path.substr(3); }

private:
    std::filesystem::path folder_;
};

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
