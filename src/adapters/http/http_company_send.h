#pragma once

#include <functional>
#include <string>
#include <vector>

#include "adapters/http/company_document.h"
#include "platform/suite/company_send_service.h"

namespace orv {

struct HttpRequest;
struct HttpResponse;

/// The settings of the service, read at each use. The parts of the three addresses are joined without change.
struct CompanySendSettings {
    std::function<std::string()> url;             ///< ORV_URL
    std::function<std::string()> cusSendService;  ///< ORV_CusSendService
    std::function<std::string()> sendCus;         ///< ORV_SendCus
    std::function<std::string()> timeOut;         ///< ORV_TimeOut, in milliseconds; 0 or less: 60 seconds
    std::function<std::string()> store;           ///< MdbOrvEstateDB
};

/// Sends a company's `tables` as one JSON document over HTTP. Does not retry; the next save sends a failed company
/// again. The text of `SendError` says that the company is stored, that the next save sends it, and the cause. Its code
/// is the server's status, a run-time failure's number, or "SEND0001" to "SEND0005".
class HttpCompanySend : public CompanySendService {
public:
    HttpCompanySend(DbService& db, std::vector<SentTable> tables, CompanySendSettings settings)
        : db_(db), tables_(std::move(tables)), settings_(std::move(settings)) {}

    FailureRecord SendError() const override { return error_; }
    void SendPrepare(bool& ok) override;
    void SendCompany(const std::string& userId, std::string& id, bool& ok) override;

private:
    [[nodiscard]] bool recorded(const std::function<void()>& steps);
    HttpResponse exchangeInTime(HttpRequest request) const;

    DbService& db_;
    std::vector<SentTable> tables_;
    CompanySendSettings settings_;
    FailureRecord error_;
};

}  // namespace orv
