#pragma once

#include <sys/types.h>

#include <csignal>
#include <filesystem>
#include <string>

#include "platform/scope.h"

namespace orv {

/// A PostgreSQL server for the tests and the benchmarks. Its cluster is in its own folder, on a Unix socket without a
/// network, run by an unprivileged user. A second process ends the server and removes the folder when the program ends,
/// even if it is killed. Failures throw.
class PrivateServer : NonCopyable {
public:
    /// Creates a cluster with a database `sample` that contains the sample's rows.
    PrivateServer();
    /// Creates a standby that follows the server with the folder `primary`.
    explicit PrivateServer(const std::filesystem::path& primary);
    ~PrivateServer();

    /// Returns the socket's folder, which tests can also use for files.
    const std::filesystem::path& folder() const { return folder_; }
    /// Returns the text that names `database` on this server.
    std::string text(const std::string& database) const;
    /// Runs `sql` as the owner of the server, without the adapter. Returns one line per row.
    std::string sql(const std::string& database, const std::string& sql) const;
    /// Creates a copy of `sample` with a new name, writes its text to a file and returns the file's path.
    std::string storeFile();

    /// Also listens on 127.0.0.1, at a free port, for TLS only. Its certificate for `localhost` is from its own
    /// authority. `authority.pem`, and `stranger.pem` of another authority, are in the folder.
    void listen();
    int port() const { return port_; }

    void start() const;
    /// `mode` is fast (ends the sessions properly) or immediate (as in a crash).
    void stop(const std::string& mode) const;
    /// Stops all processes of the server until `thaw`.
    void freeze() const { signalAll(SIGSTOP); }
    void thaw() const { signalAll(SIGCONT); }

    /// Starts a transaction pooler before the server, with a socket in the same folder, on port 6432.
    void startPooler();

private:
    void makeFolder();
    void run(const std::string& command) const;
    void signalAll(int signal) const;

    std::filesystem::path folder_;
    int watch_ = -1;
    pid_t watcher_ = -1;
    int stores_ = 0;
    int port_ = 5432;  // without `listen` used only in the socket's name
};

}  // namespace orv
