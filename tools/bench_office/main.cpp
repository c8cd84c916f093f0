// bench_office FOLDER [COMPANIES [SECONDS [STORE]]]: measures 1, 8, 32 and 64 terminals on one store. The stores are
// the file, the server, and the server with a pooler, or only the named one. Exit status 1 if an update was lost.
#include <cstdio>
#include <exception>

#include "private_server.h"
#include "working_day.h"

namespace {

using namespace bench;

constexpr int kTerminals[] = {1, 8, 32, 64};

struct Measure {
    fs::path folder;
    int companies = 1000;
    int seconds = 8;
    std::string store;  // empty: all

    bool asksFor(const char* which) const { return store.empty() || store == which; }
};

void print(const std::string& store, int terminals, const WorkingDay& day) {
    const auto count = [&](Deed deed) { return day.deeds.contains(deed) ? day.deeds.at(deed) : 0; };
    std::printf("%s terminals=%d saves/s=%.1f p95=%.0fms opened=%d switched=%d saved=%d refused=%d failed=%d",
                store.c_str(), terminals, day.savesPerSecond, day.saveMilliseconds95, count(Deed::Opened),
                count(Deed::Switched), count(Deed::Saved), count(Deed::Refused), count(Deed::Failed));
    for (const auto& [code, number] : day.failures) {
        std::printf(" %s:%d", code.c_str(), number);
    }
    std::printf(" lost=%d raced=%d locks=%d\n", day.losses.lost, day.losses.raced, day.locksLeft);
    std::fflush(stdout);
}

int onFile(const Measure& measure) {
    fs::create_directories(measure.folder);
    const fs::path sample = measure.folder / "sample.mdb";
    makeSampleFile(sample);
    const Site site(measure.folder / "file", sample, measure.companies);
    int lost = 0;
    for (const int terminals : kTerminals) {
        site.beginAgain();
        const WorkingDay day = work(site, terminals, measure.companies, measure.seconds);
        print("file", terminals, day);
        lost += day.losses.lost;
    }
    return lost;
}

/// Makes the server as durable as the file, with two sessions per terminal.
void makeDurable(const orv::PrivateServer& server) {
    server.sql("postgres", "ALTER SYSTEM SET fsync = on");
    server.sql("postgres", "ALTER SYSTEM SET max_connections = 200");
    server.stop("fast");
    server.start();
}

/// Restores and vacuums the rows for the next measurement, because reads of changed rows are slower until then.
void beginAgain(const orv::PrivateServer& server, const Site& site) {
    site.beginAgain();
    server.sql("store1", "VACUUM FULL ANALYZE");
    server.sql("store1", "VACUUM");
}

/// Measures with a transaction pooler between the terminals and the server.
int overPooler(const Measure& measure, orv::PrivateServer& server, const Site& site) {
    server.startPooler();
    site.reachBy(server.text("store1") + " port=6432");
    int lost = 0;
    for (const int terminals : {32, 64}) {
        beginAgain(server, site);
        const WorkingDay day = work(site, terminals, measure.companies, measure.seconds);
        print("pooler", terminals, day);
        lost += day.losses.lost;
    }
    return lost;
}

int onServer(const Measure& measure) {
    orv::PrivateServer server;
    makeDurable(server);
    const Site site(measure.folder / "server", server.storeFile(), measure.companies);
    int lost = 0;
    for (const int terminals : kTerminals) {
        if (!measure.asksFor("server")) {
            break;
        }
        beginAgain(server, site);
        const WorkingDay day = work(site, terminals, measure.companies, measure.seconds);
        print("server", terminals, day);
        lost += day.losses.lost;
    }
    return lost + (measure.asksFor("pooler") ? overPooler(measure, server, site) : 0);
}

}  // namespace

int main(int argc, char* argv[]) {
    if (argc < 2) {
        std::fputs("bench_office FOLDER [COMPANIES [SECONDS [file | server | pooler]]]\n", stderr);
        return 2;
    }
    try {
        Measure measure;
        measure.folder = argv[1];
        measure.companies = argc > 2 ? std::stoi(argv[2]) : measure.companies;
        measure.seconds = argc > 3 ? std::stoi(argv[3]) : measure.seconds;
        measure.store = argc > 4 ? argv[4] : "";
        const int lostOnFile = measure.asksFor("file") ? onFile(measure) : 0;
        const bool needsServer = measure.asksFor("server") || measure.asksFor("pooler");
        return lostOnFile + (needsServer ? onServer(measure) : 0) == 0 ? 0 : 1;
    } catch (const std::exception& failure) {
        std::fprintf(stderr, "bench_office: %s\n", failure.what());
        return 1;
    }
}
