#include "adapters/postgres/postgres_failure.h"

#include <algorithm>
#include <array>

#include "platform/ascii.h"

namespace orv {
namespace {

enum class Detail : bool { Hidden, Shown };

struct ServerState {
    std::string_view state;
    Failure number;
    Detail detail;
    std::string_view text;
};

// A row applies to all states that begin with its text. The first such row is used.
constexpr auto kStates = std::to_array<ServerState>({
    {"08", Failure::ConnectionFailed, Detail::Shown, "データベースのサーバーとの通信に失敗しました。"},
    {"22001", Failure::Overflow, Detail::Shown, "データが長すぎて、データベースの項目に入りません。"},
    {"22021", Failure::InvalidCall, Detail::Shown, "データベースで扱えない文字があります。"},
    {"22P05", Failure::InvalidCall, Detail::Shown, "データベースで扱えない文字があります。"},
    {"23502", Failure::InvalidCall, Detail::Shown, "値が必要な項目が空です。"},
    {"23505", Failure::InvalidCall, Detail::Shown, "同じキーのデータがすでに登録されています。"},
    {"23", Failure::InvalidCall, Detail::Shown, "データベースの決まりに合わない値です。"},
    {"25006", Failure::PermissionDenied, Detail::Hidden, "データベースが読み取り専用のため、書き込めません。"},
    {"25P03", Failure::TimedOut, Detail::Hidden,
     "データベースへの書き込みが途中で止まっていたため、サーバーが取り消しました。"},
    {"28P01", Failure::PermissionDenied, Detail::Shown,
     "データベースのサーバーがユーザー名またはパスワードを受け付けません。"},
    {"28", Failure::PermissionDenied, Detail::Shown, "データベースのサーバーへの接続が許可されていません。"},
    {"3D000", Failure::FileNotFound, Detail::Shown, "指定されたデータベースがサーバーにありません。"},
    {"40P01", Failure::PermissionDenied, Detail::Hidden,
     "ほかの端末の書き込みと重なったため、取り消されました。もう一度実行してください。"},
    {"40", Failure::PermissionDenied, Detail::Hidden,
     "ほかの端末の書き込みと重なったため、取り消されました。もう一度実行してください。"},
    {"42501", Failure::PermissionDenied, Detail::Shown, "データベースを使う権限がありません。"},
    {"42P01", Failure::InvalidCall, Detail::Shown, "データベースに必要な表がありません。"},
    {"53100", Failure::DiskFull, Detail::Hidden,
     "サーバーのディスクの空き容量が足りないため、データベースに書き込めません。"},
    {"53200", Failure::OutOfMemory, Detail::Hidden, "データベースのサーバーのメモリが足りません。"},
    {"53300", Failure::ConnectionFailed, Detail::Hidden,
     "データベースのサーバーへの接続が多すぎます。しばらくしてから、もう一度実行してください。"},
    {"53", Failure::ConnectionFailed, Detail::Shown, "データベースのサーバーの余力が足りません。"},
    {"54", Failure::Overflow, Detail::Hidden, "データが長すぎて、データベースで扱えません。"},
    {"55P03", Failure::PermissionDenied, Detail::Hidden,
     "データベースがほかの端末またはプログラムで使用中です。しばらくしてから、もう一度実行してください。"},
    {"57014", Failure::TimedOut, Detail::Hidden, "データベースの処理が時間内に終わらないため、取り消されました。"},
    {"57P03", Failure::ConnectionFailed, Detail::Hidden,
     "データベースのサーバーがまだ動き始めていないか、停止しようとしています。"
     "しばらくしてから、もう一度実行してください。"},
    {"57", Failure::ConnectionFailed, Detail::Hidden,
     "データベースのサーバーが停止したか、接続を切りました。書き込み中の内容は取り消されます。"},
    {"58", Failure::DeviceIo, Detail::Shown, "データベースのサーバーで読み書き中にエラーが発生しました。"},
    {"XX001", Failure::DeviceIo, Detail::Shown,
     "サーバーのデータベースが壊れています。バックアップから戻してください。"},
    {"XX002", Failure::DeviceIo, Detail::Shown,
     "サーバーのデータベースが壊れています。バックアップから戻してください。"},
    {"", Failure::InvalidCall, Detail::Shown, "データベースへの命令を実行できません。"},
});

constexpr StoreRefusal kNoServer{"DBCONN02", Failure::ConnectionFailed, "データベースのサーバーに接続できません。"};
constexpr std::size_t kStateLength = 5;
constexpr std::string_view kUndefinedColumn = "42703";
constexpr std::string_view kStrangeState = "XXXXX";  // replaces anything that is not a state

bool isState(std::string_view text) {
    return text.size() == kStateLength &&
           std::ranges::all_of(text, [](char c) { return isAsciiDigit(c) || isAsciiCapital(c); });
}

std::string_view firstLine(std::string_view text) { return text.substr(0, text.find('\n')); }

}  // namespace

StoreFailure serverFailure(std::string_view state, std::string_view detail) {
    if (!isState(state)) {
        state = kStrangeState;
    }
    if (state == kUndefinedColumn) {
        return missingColumnFailure(detail);
    }
    const auto& row = *std::ranges::find_if(kStates, [&](const auto& each) { return state.starts_with(each.state); });
    return {row.number, "DB" + std::string(state),
            withDetail(row.text, row.detail == Detail::Shown ? detail : std::string_view())};
}

StoreFailure openingFailure(std::string_view words) {
    // The text is "...FATAL:  3D000: database "orv" does not exist". After several hosts or attempts, the last one is
    // used.
    constexpr std::string_view sign = ":  ";
    for (std::size_t at = words.rfind(sign); at != std::string_view::npos; at = words.substr(0, at).rfind(sign)) {
        const std::string_view rest = words.substr(at + sign.size());
        if (isState(rest.substr(0, kStateLength)) && rest.substr(kStateLength).starts_with(": ")) {
            return serverFailure(rest.substr(0, kStateLength), firstLine(rest.substr(kStateLength + 2)));
        }
    }
    while (words.ends_with('\n')) {
        words.remove_suffix(1);
    }
    return {kNoServer.number, std::string(kNoServer.code), withDetail(kNoServer.text, words)};
}

}  // namespace orv
