#include "private_server.h"
#include "sample_folder.h"

#include <fcntl.h>
#include <netinet/in.h>
#include <sys/socket.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdlib>
#include <fstream>
#include <iterator>
#include <stdexcept>
#include <string>
#include <thread>
#include <vector>

namespace orv {
namespace {

namespace fs = std::filesystem;

constexpr const char* kOwner = "keeper";
constexpr ::uid_t kNobody = 65534;
constexpr int kTries = 3600;  // 50 ms each

std::string readFile(const fs::path& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

void require(bool fine, const std::string& otherwise) {
    if (!fine) {
        throw std::runtime_error(otherwise);
    }
}

pid_t readProcessId(const fs::path& pidFile) {
    const std::string digits = readFile(pidFile);
    return digits.empty() ? 0 : std::stoi(digits);
}

/// Returns the server's process and those of its sessions.
std::vector<pid_t> serverProcesses(const fs::path& folder) {
    std::vector<pid_t> processes;
    const pid_t server = readProcessId(folder / "data/postmaster.pid");
    if (server > 0) {
        const std::string id = std::to_string(server);
        std::ifstream children("/proc/" + id + "/task/" + id + "/children");
        processes.assign(std::istream_iterator<pid_t>(children), {});
        processes.push_back(server);
    }
    return processes;
}

void sendAll(const fs::path& folder, int signal) {
    for (const pid_t process : serverProcesses(folder)) {
        ::kill(process, signal);
    }
}

int freePort() {
    const int socket = ::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0);
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    socklen_t size = sizeof address;
    auto* const place = reinterpret_cast<sockaddr*>(&address);
    require(::bind(socket, place, size) == 0 && ::getsockname(socket, place, &size) == 0, "no free port");
    ::close(socket);
    return ntohs(address.sin_port);
}

/// Ends the processes of the folder and removes it.
void cleanUp(const fs::path& folder) {
    const pid_t pooler = readProcessId(folder / "pooler.pid");
    if (pooler > 0) {
        ::kill(pooler, SIGTERM);
    }
    const fs::path pidFile = folder / "data/postmaster.pid";
    const pid_t server = readProcessId(pidFile);
    sendAll(folder, SIGCONT);
    if (server > 0) {
        ::kill(server, SIGQUIT);
        for (int tries = 0; fs::exists(pidFile) && ::kill(server, 0) == 0 && tries < kTries; ++tries) {
            std::this_thread::sleep_for(std::chrono::milliseconds(50));
        }
        ::kill(server, SIGKILL);
    }
    std::error_code ignored;
    fs::remove_all(folder, ignored);
}

}  // namespace

PrivateServer::PrivateServer() {
    makeFolder();
    run("initdb -D data -U " + std::string(kOwner) + " -A trust -E UTF8 --locale=C --no-sync --no-instructions");
    std::ofstream(folder_ / "data/postgresql.conf", std::ios::app)
        << "listen_addresses = ''\nunix_socket_directories = '" << folder_.string()
        << "'\nfsync = off\nshared_buffers = 16MB\nlog_min_messages = fatal\n";
    const std::string rules = readFile(folder_ / "data/pg_hba.conf");
    std::ofstream(folder_ / "data/pg_hba.conf") << "local all guarded scram-sha-256\n" << rules;
    start();
    sql("postgres", "CREATE DATABASE sample");
    for (const char* name : {"server", "schema", "masters", "companies", "locks", "transmit"}) {
        sql("sample", readFile(fs::path(kSampleFolder) / "sql" / (std::string(name) + ".sql")));
    }
}

PrivateServer::PrivateServer(const fs::path& primary) {
    makeFolder();
    run("pg_basebackup -h " + primary.string() + " -U " + kOwner + " -D data -R -X stream -c fast --no-sync");
    std::ofstream(folder_ / "data/postgresql.conf", std::ios::app)
        << "unix_socket_directories = '" << folder_.string() << "'\n";
    start();
}

PrivateServer::~PrivateServer() {
    ::close(watch_);
    ::waitpid(watcher_, nullptr, 0);
}

void PrivateServer::makeFolder() {
    std::string pattern = (fs::temp_directory_path() / "server-XXXXXX").string();
    folder_ = ::mkdtemp(pattern.data());
    if (::geteuid() == 0) {
        require(::chown(folder_.c_str(), kNobody, kNobody) == 0, "the server's folder can't be given away");
    }
    int ends[2];
    require(::pipe2(ends, O_CLOEXEC) == 0, "no pipe");
    watch_ = ends[1];
    watcher_ = ::fork();
    if (watcher_ == 0) {
        ::setsid();
        ::close(ends[1]);
        const int nowhere = ::open("/dev/null", O_RDWR);
        ::dup2(nowhere, STDOUT_FILENO);
        ::dup2(nowhere, STDERR_FILENO);
        char byte = 0;
        while (::read(ends[0], &byte, 1) < 0) {
        }
        cleanUp(folder_);
        ::_exit(0);
    }
    ::close(ends[0]);
}

void PrivateServer::run(const std::string& command) const {
    const std::string user = ::geteuid() == 0 ? "setpriv --reuid=65534 --regid=65534 --clear-groups " : "";
    const std::string whole = "cd '" + folder_.string() + "' && PATH=" POSTGRES_FOLDER ":/usr/sbin:$PATH " + user +
                              command + " >command.log 2>&1 </dev/null";
    const bool fine = std::system(whole.c_str()) == 0;  // NOLINT(cert-env33-c)
    require(fine, command + "\n" + readFile(folder_ / "command.log"));
}

std::string PrivateServer::text(const std::string& database) const {
    return "host=" + folder_.string() + " port=" + std::to_string(port_) + " user=" + kOwner + " dbname=" + database;
}

std::string PrivateServer::sql(const std::string& database, const std::string& sql) const {
    std::ofstream(folder_ / "statements.sql") << sql;
    run("psql -X -q -A -t -v ON_ERROR_STOP=1 -f statements.sql -o rows.txt '" + text(database) + "'");
    return readFile(folder_ / "rows.txt");
}

std::string PrivateServer::storeFile() {
    const std::string name = "store" + std::to_string(++stores_);
    sql("postgres", "CREATE DATABASE " + name + " TEMPLATE sample");
    std::ofstream(folder_ / name) << text(name) << "\n";
    return (folder_ / name).string();
}

void PrivateServer::listen() {
    stop("fast");
    const std::string request = "openssl req -newkey ec -pkeyopt ec_paramgen_curve:prime256v1 -nodes -subj ";
    for (const std::string name : {"authority", "stranger"}) {
        run(request + "/CN=" + name + " -x509 -days 2 -keyout " + name + ".key -out " + name + ".pem");
    }
    run(request + "/CN=localhost -keyout data/server.key -out server.csr");
    run("openssl x509 -req -in server.csr -CA authority.pem -CAkey authority.key -CAcreateserial -days 2"
        " -out data/server.crt");
    port_ = freePort();
    std::ofstream(folder_ / "data/postgresql.conf", std::ios::app)
        << "ssl = on\nlisten_addresses = '127.0.0.1'\nport = " << port_ << "\n";
    const std::string rules = readFile(folder_ / "data/pg_hba.conf");
    std::ofstream(folder_ / "data/pg_hba.conf") << "hostnossl all all 127.0.0.1/32 reject\n" << rules;
    start();
}

void PrivateServer::start() const { run("pg_ctl -D data -l server.log -w -t 180 -s start"); }

void PrivateServer::stop(const std::string& mode) const { run("pg_ctl -D data -w -t 180 -s -m " + mode + " stop"); }

void PrivateServer::signalAll(int signal) const { sendAll(folder_, signal); }

void PrivateServer::startPooler() {
    std::ofstream(folder_ / "users.txt") << '"' << kOwner << "\" \"\"\n";
    std::ofstream(folder_ / "pooler.ini")
        << "[databases]\n* = host=" << folder_.string()
        << "\n[pgbouncer]\nlisten_addr =\nlisten_port = 6432\nunix_socket_dir = " << folder_.string()
        << "\npool_mode = transaction\nauth_type = trust\nauth_file = users.txt\n"
           "default_pool_size = 5\npidfile = pooler.pid\nlogfile = pooler.log\n";
    run("pgbouncer -q -d pooler.ini");
    // The pooler becomes a background process before it listens.
    for (int tries = 0; !fs::exists(folder_ / ".s.PGSQL.6432") && tries < kTries; ++tries) {
        std::this_thread::sleep_for(std::chrono::milliseconds(50));
    }
}

}  // namespace orv
