#include "adapters/http/http_company_send.h"

#include <array>
#include <charconv>
#include <cmath>
#include <limits>

#include "adapters/http/curl_session.h"
#include "platform/ascii.h"
#include "platform/run_time_error.h"

namespace orv {
namespace {

using std::chrono::milliseconds;

constexpr milliseconds kDefaultTimeout{60'000};
/// Precedes every cause. The save has written the company before it calls this service.
constexpr const char* kWhatIsSafe =
    "会社情報は保存しましたが、サーバーへの送信は完了していません。もう一度保存すると送信します。原因：";

struct Refused {
    FailureRecord why;
};

struct RequiredSetting {
    std::function<std::string()> CompanySendSettings::*value;
    const char* text;
    const char* code;
};

constexpr auto kRequired = std::to_array<RequiredSetting>({
    {&CompanySendSettings::url, "送信先のアドレス（URL）が設定されていません。", "SEND0001"},
    {&CompanySendSettings::cusSendService, "送信準備のアドレス（CUSSENDSERVICE）が設定されていません。", "SEND0002"},
    {&CompanySendSettings::sendCus, "会社情報の送信先（SENDCUS）が設定されていません。", "SEND0003"},
});

void requireSettings(const CompanySendSettings& settings) {
    for (const auto& setting : kRequired) {
        if (trimmed((settings.*setting.value)(), kBlanksAndTabs).empty()) {
            throw Refused{{setting.text, setting.code}};
        }
    }
}

milliseconds parseTimeout(const std::string& setting) {
    const std::string_view text = trimmed(setting, kBlanksAndTabs);
    double number = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    const bool whole = error == std::errc{} && end == text.data() + text.size();
    if (!whole || !(std::abs(number) <= std::numeric_limits<std::int32_t>::max())) {
        throw Refused{{"待ち時間（TIMEOUT）の設定が数値ではありません。", "SEND0004"}};
    }
    const milliseconds timeout(static_cast<std::int32_t>(std::nearbyint(number)));
    return timeout.count() > 0 ? timeout : kDefaultTimeout;
}

void requireSuccess(const HttpResponse& answer, std::string_view what) {
    if (answer.status < 200 || answer.status > 299) {
        const std::string code = std::to_string(answer.status);
        throw Refused{{std::string(what) + "（" + code + " " + answer.reason + "）", code}};
    }
}

}  // namespace

/// Converts every exception to the record that `SendError` returns.
bool HttpCompanySend::recorded(const std::function<void()>& steps) {
    error_ = {};
    try {
        steps();
        return true;
    } catch (const Refused& refused) {
        error_ = refused.why;
    } catch (const RunTimeError& failure) {
        error_ = {failure.description(), std::to_string(failure.number())};
    } catch (const std::exception&) {
        error_ = {std::string(describe(Failure::Internal)), std::to_string(static_cast<int>(Failure::Internal))};
    }
    error_.text.insert(0, kWhatIsSafe);
    return false;
}

HttpResponse HttpCompanySend::exchangeInTime(HttpRequest request) const {
    request.timeout = parseTimeout(settings_.timeOut());
    return exchange(request);
}

void HttpCompanySend::SendPrepare(bool& ok) {
    ok = recorded([this] {
        requireSettings(settings_);
        HttpRequest request;
        request.url = settings_.url() + settings_.cusSendService();
        requireSuccess(exchangeInTime(std::move(request)), "サーバーの送信準備ができていません。");
    });
}

void HttpCompanySend::SendCompany(const std::string& userId, std::string& id, bool& ok) {
    id.clear();
    ok = recorded([&] {
        requireSettings(settings_);
        HttpRequest request;
        request.url = settings_.url() + settings_.sendCus();
        request.headers = {"Content-Type: application/json; charset=utf-8"};
        request.body = companyDocument(db_, tables_, settings_.store(), userId);
        const HttpResponse answer = exchangeInTime(std::move(request));
        requireSuccess(answer, "会社情報の送信がサーバーに受け付けられませんでした。");
        const auto given = idInAnswer(answer.body);
        if (!given) {
            throw Refused{{"会社情報の送信に対するサーバーの応答が正しくありません。", "SEND0005"}};
        }
        id = *given;
    });
}

}  // namespace orv
