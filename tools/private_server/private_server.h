#pragma once

#include <sys/types.h>

#include <csignal>
#include <filesystem>
#include <string>

namespace orv {

/// A PostgreSQL server of one's own, for the tests and the benchmarks: a cluster in a folder of its own, on a Unix
/// socket there and no network, run by an unprivileged user. A second process watches over it: however the program
/// ends, also killed, it ends the server and removes the folder. What fails throws.
class PrivateServer {
public:
    /// A new cluster with a database `sample` that holds the sample's rows.
    PrivateServer();
    /// A standby that follows the server whose folder is `primary`.
    explicit PrivateServer(const std::filesystem::path& primary);
    PrivateServer(const PrivateServer&) = delete;
    PrivateServer& operator=(const PrivateServer&) = delete;
    ~PrivateServer();

    /// Where the socket is; the folder is there for files of the user too.
    const std::filesystem::path& folder() const { return folder_; }
    /// The text that names `database` on this server.
    std::string text(const std::string& database) const;
    /// Runs `sql` as the owner of the server, past the adapter. What it yields, a row a line.
    std::string sql(const std::string& database, const std::string& sql) const;
    /// A copy of `sample` under a name of its own; its text is written into a file, whose path is returned.
    std::string storeFile();

    /// From now on also on 127.0.0.1, at a free port, for those only who speak TLS: with a certificate for `localhost`
    /// of an authority of its own. `authority.pem`, and `stranger.pem` of another one, are in the folder.
    void listen();
    int port() const { return port_; }

    void start() const;
    /// `mode`: fast (sessions are told) or immediate (as in a crash).
    void stop(const std::string& mode) const;
    /// Stands still with all its sessions, until `thaw`.
    void freeze() const { signalAll(SIGSTOP); }
    void thaw() const { signalAll(SIGCONT); }

    /// Starts a transaction pooler before the server; its socket is in the same folder, on port 6432.
    void startPooler();

private:
    void makeFolder();
    void run(const std::string& command) const;
    void signalAll(int signal) const;

    std::filesystem::path folder_;
    int watch_ = -1;
    pid_t watcher_ = -1;
    int stores_ = 0;
    int port_ = 5432;  // without `listen` the name of the socket only
};

}  // namespace orv
