#pragma once

#include <fcntl.h>
#include <gtest/gtest.h>
#include <poll.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <unistd.h>

#include <array>
#include <chrono>
#include <map>

#include "adapters/posix/descriptor.h"
#include "adapters/posix/sibling_socket.h"
#include "support/temp_office.h"
#include "support/variable.h"

namespace orv {

/// An event loop that waits for the watched descriptors.
class PolledWatches {
public:
    SiblingSocket::Watch watch() {
        return [this](int descriptor, std::function<void()> readable) {
            readable_[descriptor] = std::move(readable);
            return std::shared_ptr<void>(nullptr, [this, descriptor](void*) { readable_.erase(descriptor); });
        };
    }
    /// Handles due events one by one until `done`. False if it does not happen.
    bool until(const std::function<bool()>& done) {
        const auto deadline = std::chrono::steady_clock::now() + std::chrono::minutes(3);
        while (!done() && std::chrono::steady_clock::now() < deadline) {
            turn();
        }
        return done();
    }
    /// Runs enough rounds for every pending event to arrive.
    void settle() {
        for (int i = 0; i < 50; ++i) turn();
    }

private:
    void turn() {
        for (const auto& [descriptor, readable] : readable_) {
            pollfd look{descriptor, POLLIN, 0};
            if (::poll(&look, 1, 1) > 0) return std::function(readable)();
        }
    }

    std::map<int, std::function<void()>> readable_;
};

/// Acts as a sibling program, in this process.
class Client {
public:
    explicit Client(const std::string& path) : socket_(::socket(AF_UNIX, SOCK_STREAM, 0)) {
        sockaddr_un address{};
        address.sun_family = AF_UNIX;
        path.copy(address.sun_path, sizeof address.sun_path - 1);
        connected_ = ::connect(socket_.number(), reinterpret_cast<sockaddr*>(&address), sizeof address) == 0;
        ::fcntl(socket_.number(), F_SETFL, O_NONBLOCK);
    }
    bool connected() const { return connected_; }
    void say(const std::string& bytes) const {
        EXPECT_EQ(::send(socket_.number(), bytes.data(), bytes.size(), MSG_NOSIGNAL),
                  static_cast<ssize_t>(bytes.size()));
    }
    /// Returns the answers until now; "|" is a closed connection.
    std::string received() const {
        std::string all;
        std::array<char, 4096> bytes{};
        ssize_t count = 0;
        while ((count = ::read(socket_.number(), bytes.data(), bytes.size())) > 0) {
            all.append(bytes.data(), static_cast<std::size_t>(count));
        }
        return count == 0 || errno != EAGAIN ? all + "|" : all;
    }
    void hangUp() { socket_ = Descriptor(); }

private:
    Descriptor socket_;
    bool connected_ = false;
};

class SiblingSocketTest : public testing::Test {
protected:
    ~SiblingSocketTest() override {
        office.write("end", "");
        socket.dismiss();
        EXPECT_EQ(leftovers(), 0);
    }

    /// Starts a program that reports its socket and runs until "end" exists or the office is removed. Returns the
    /// socket's path.
    std::string start() {
        const std::string script = "#!/bin/sh\ncd " + office.root() +
                                   "\nprintf %s \"$ORV_SIBLING_SOCKET\" > new\nmv new path\n"
                                   "while [ -e ../${PWD##*/} ] && [ ! -e end ]; do sleep 0.01; done\n";
        ::chmod(office.write("C/ORV/BIN/KELT_ADD.EXE", script).c_str(), 0755);
        socket.start("KELT_ADD.EXE 1,2", calls());
        EXPECT_TRUE(loop.until([&] { return office.has("path"); }));
        return office.readBytes("path");
    }
    SiblingCalls calls() {
        return {.setText =
                    [this](std::uint32_t handle, const std::string& text) {
                        happened += "T" + std::to_string(handle) + "[" + text + "]";
                        return handle != 99;
                    },
                .pressKey =
                    [this](std::uint32_t handle, int key) {
                        happened += "K" + std::to_string(handle) + "," + std::to_string(key);
                        socket.dismiss();
                        return true;
                    },
                .gone = [this] { happened += "gone"; }};
    }
    std::ptrdiff_t leftovers() const { return runtime.countIn("C/ORV/BIN"); }
    bool waitFor(const std::string& all) {
        return loop.until([&] { return happened == all; });
    }
    bool waitForAnswer(const Client& client, const std::string& all) {
        std::string received;
        return loop.until([&] { return (received += client.received()) == all; });
    }

    TempOffice office;
    TempOffice runtime;
    const Variable runtimeFolder{"XDG_RUNTIME_DIR", runtime.root() + "/C/ORV/BIN"};
    const Variable otherSocket{kSiblingSocketVariable, "of another program"};
    PosixStarter programs{office.paths()};
    PolledWatches loop;
    SiblingSocket socket{programs, loop.watch()};
    std::string happened;
};

}  // namespace orv
