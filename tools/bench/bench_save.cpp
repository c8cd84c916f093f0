#include <curl/curl.h>
#include <sqlite3.h>

#include <cstdio>
#include <memory>
#include <stdexcept>

#include "app/sent_tables.h"
#include "bench.h"
#include "bench_office.h"
#include "config/settings.h"
#include "core/flow/save_company.h"
#include "core/record/globals.h"
#include "pages/forms/page_set.h"
#include "store/statements.h"

namespace bench {
namespace {

using Curl = std::unique_ptr<CURL, decltype(&curl_easy_cleanup)>;
using HeaderList = std::unique_ptr<curl_slist, decltype(&curl_slist_free_all)>;
using File = std::unique_ptr<std::FILE, decltype(&std::fclose)>;

std::size_t ignore(char*, std::size_t size, std::size_t count, void*) { return size * count; }

Curl request(const std::string& url) {
    Curl curl(curl_easy_init(), curl_easy_cleanup);
    curl_easy_setopt(curl.get(), CURLOPT_URL, url.c_str());
    curl_easy_setopt(curl.get(), CURLOPT_WRITEFUNCTION, ignore);
    curl_easy_setopt(curl.get(), CURLOPT_FAILONERROR, 1L);
    return curl;
}

void perform(const Curl& curl) {
    if (curl_easy_perform(curl.get()) != CURLE_OK) {
        throw std::runtime_error("the peer's request failed");
    }
}

void put(const std::string& url, const std::filesystem::path& photo) {
    const Curl curl = request(url);
    const File file(std::fopen(photo.c_str(), "rb"), std::fclose);
    curl_easy_setopt(curl.get(), CURLOPT_UPLOAD, 1L);
    curl_easy_setopt(curl.get(), CURLOPT_READDATA, file.get());
    curl_easy_setopt(curl.get(), CURLOPT_INFILESIZE_LARGE, static_cast<curl_off_t>(std::filesystem::file_size(photo)));
    curl_easy_setopt(curl.get(), CURLOPT_USERPWD, "kvr73node:Xk9TRbmW2");
    perform(curl);
}

void post(const std::string& url, const std::string& body) {
    const Curl curl = request(url);
    const HeaderList headers(curl_slist_append(nullptr, "Content-Type: application/json; charset=utf-8"),
                             curl_slist_free_all);
    curl_easy_setopt(curl.get(), CURLOPT_HTTPHEADER, headers.get());
    curl_easy_setopt(curl.get(), CURLOPT_POSTFIELDS, body.c_str());
    perform(curl);
}

/// Runs the three statements in one transaction that is as durable as the program's.
void runTransaction(const std::filesystem::path& store) {
    std::array<std::string, 3> statements;
    static_cast<void>(orv::P_MakeUpdateSQL_Info(statements[0], orv::tCustomerInfo.USER_ID));
    static_cast<void>(orv::P_MakeUpdateSQL_Add(statements[1], orv::tCustomerInfo.USER_ID));
    static_cast<void>(orv::P_MakeUpdateSQL_Date(statements[2], orv::tCustomerInfo.USER_ID));
    sqlite3* database = nullptr;
    sqlite3_open(store.c_str(), &database);
    for (const std::string& sql : {std::string("pragma synchronous=extra"), std::string("begin immediate"),
                                   statements[0], statements[1], statements[2], std::string("commit")}) {
        if (sqlite3_exec(database, sql.c_str(), nullptr, nullptr, nullptr) != SQLITE_OK) {
            throw std::runtime_error(sqlite3_errmsg(database));
        }
    }
    sqlite3_close(database);
}

}  // namespace

Result measureSave(const std::string& folder) {
    const ui_driver::ServerProcess server(folder + "/save-server");
    const ui_driver::Office office(folder + "/save-office", server.port());
    const orv::Application application("bench");
    const RunningProgram program(office, "000004601,1,0");
    orv::PageForm& page = orv::page<orv::frm_CompInp0>();
    const std::string base = "http://127.0.0.1:" + server.port();
    // The server then does the same work for both.
    const std::string body =
        orv::companyDocument(*orv::services().db, orv::sentTables(), orv::com().MdbOrvEstateDB(), "000004601");
    const auto photo = [&](int slot) {
        return office.drive() /
               ("ORV/IMG/" + std::to_string(slot) + "/000004601COS00000000_0" + std::to_string(slot) + ".jpg");
    };
    const auto ours = [&] {
        std::string id;
        if (!orv::PF_SndCos(page, id) || program.messages().last() != "COS05574") {
            throw std::runtime_error("the save failed: " + orv::gErrMsg);
        }
    };
    const auto peer = [&] {
        runTransaction(office.store());
        perform(request(base + "/cussend/"));
        put(base + "/rereceive46/davroot/peer_01.jpg", photo(1));
        put(base + "/rereceive46/davroot/peer_02.jpg", photo(2));
        post(base + "/cussend/register", body);
        runTransaction(office.store());
    };
    ours();
    peer();
    return alternately(40, ours, peer);
}

}  // namespace bench
