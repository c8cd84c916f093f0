// crash_test FOLDER STORE STEP: kills a scenario, or makes a call fail, at every STEP-th call that accesses the store,
// the photos, the log or a connection. STORE is "file" or "server". With "answers" instead, one answer of the
// suite's server after the other is wrong.
#include <sched.h>

#include <algorithm>
#include <cstdlib>
#include <exception>
#include <iostream>
#include <optional>
#include <span>

#include "adapters/http/curl_library.h"
#include "failing_calls.h"
#include "private_server.h"
#include "wrong_answers.h"

namespace {

using namespace crash_test;

constexpr const char* kUnsent =
    "update TBL_CUSTOMER_INFO set PWD_CHG_FLG = '2' where USER_ID = '000004601'; "
    "update TBL_CUSTOMER_ADD set SEND_FLAG = TRUE where USER_ID = '000004601'";
constexpr const char* kToMarker =
    "update TBL_CUSTOMER_INFO set USER_ID = '---------' where USER_ID = '000004601'; "
    "update TBL_CUSTOMER_ADD set USER_ID = '---------', PHOTO_FILE1 = '', PHOTO_FILE2 = '', PHOTO_GRP1 = '', "
    "PHOTO_GRP2 = '' where USER_ID = '000004601'; "
    "update TBL_CUSTOMER_DATE set USER_ID = '---------' where USER_ID = '000004601'";
constexpr const char* kNoMarker =
    "delete from TBL_CUSTOMER_INFO where USER_ID = '---------'; delete from TBL_CUSTOMER_ADD where USER_ID = "
    "'---------'; delete from TBL_CUSTOMER_DATE where USER_ID = '---------'";

constexpr CompanyKind kKinds[] = {
    {"known company", "000004601", kUnsent, "", false},
    {"new company", "---------", kToMarker, kNoMarker, false},
    {"both photos replaced", "000004601", kUnsent, "", true},
};

/// Runs the watched and the watching process on one processor, the first or the last allowed, because they alternate.
/// This is much faster.
void stayOnProcessor(bool first) {
    cpu_set_t all;
    if (::sched_getaffinity(0, sizeof all, &all) != 0) {
        return;
    }
    std::size_t chosen = 0;
    for (std::size_t i = 0, seen = 0; i < CPU_SETSIZE; ++i) {
        if (CPU_ISSET(i, &all) && (seen++ == 0 || !first)) {
            chosen = i;
        }
    }
    cpu_set_t one;
    CPU_ZERO(&one);
    CPU_SET(chosen, &one);
    static_cast<void>(::sched_setaffinity(0, sizeof one, &one));
}

int summarise(const Checker& checker) {
    std::cout << checker.points() << " points, " << checker.faults() << " faults" << std::endl;
    return checker.faults() == 0 ? 0 : 1;
}

int testCalls(const std::filesystem::path& folder, const std::string& store, int step) {
    std::filesystem::remove_all(folder);
    std::filesystem::create_directories(folder);
    const ui_driver::ServerProcess server(folder / "server");
    OfficeFixture fixture(std::filesystem::absolute(folder), server.port());
    std::optional<orv::PrivateServer> database;
    if (store == "server") {
        database.emplace();
        fixture.reachServer(database->text("sample"));
    }
    stayOnProcessor(store == "file");
    orv::curlLibrary();  // loaded before the scenarios start
    FailingCalls test(fixture, server, store, step);
    for (const CompanyKind& kind : kKinds) {
        test.run(kind);
    }
    return summarise(test);
}

/// The third kind replaces its photos, which does not change any answer.
constexpr std::size_t kAnsweredKinds = 2;

int testAnswers(const std::filesystem::path& folder) {
    std::filesystem::remove_all(folder);
    std::filesystem::create_directories(folder);
    const ui_driver::ServerProcess server(folder / "server");
    OfficeFixture fixture(std::filesystem::absolute(folder), server.port());
    orv::curlLibrary();
    WrongAnswers test(fixture, server);
    for (const CompanyKind& kind : std::span(kKinds).first(kAnsweredKinds)) {
        test.run(kind);
    }
    return summarise(test);
}

}  // namespace

int main(int argc, char* argv[]) {
    const std::string store = argc == 4 ? argv[2] : "";
    if (store != "file" && store != "server" && store != "answers") {
        std::cerr << "usage: crash_test FOLDER file|server|answers STEP\n";
        return 2;
    }
    ::setenv("ORV_COMPUTER_NAME", "DESK-01", 1);  // NOLINT(concurrency-mt-unsafe)
    const std::filesystem::path state = std::filesystem::absolute(argv[1]) / "state";
    ::setenv("XDG_STATE_HOME", state.c_str(), 1);  // NOLINT(concurrency-mt-unsafe)
    try {
        if (store == "answers") {
            return testAnswers(argv[1]);
        }
        return testCalls(argv[1], store, std::max(1, std::atoi(argv[3])));
    } catch (const std::exception& failure) {
        std::cerr << "crash_test: " << failure.what() << "\n";
        return 2;
    }
}
