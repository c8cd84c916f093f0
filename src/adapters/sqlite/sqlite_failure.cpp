#include "adapters/sqlite/sqlite_failure.h"

#include <sqlite3.h>

#include <array>
#include <string_view>

namespace orv {
namespace {

enum class Detail : bool { Hidden, Shown };

struct EngineResult {
    int result;
    Failure number;
    Detail detail;
    std::string_view text;
};

// Extended result numbers are searched first, then primary ones.
constexpr auto kResults = std::to_array<EngineResult>({
    {SQLITE_BUSY, Failure::PermissionDenied, Detail::Hidden,
     "データベースがほかの端末またはプログラムで使用中です。しばらくしてから、もう一度実行してください。"},
    {SQLITE_LOCKED, Failure::PermissionDenied, Detail::Hidden,
     "データベースがこのプログラムのほかの処理で使用中です。"},
    {SQLITE_READONLY_DIRECTORY, Failure::PermissionDenied, Detail::Hidden,
     "データベースのフォルダーに書き込みが許可されていません。"},
    {SQLITE_READONLY_ROLLBACK, Failure::PermissionDenied, Detail::Hidden,
     "中断された書き込みの後始末が必要ですが、データベースが読み取り専用です。"},
    {SQLITE_READONLY, Failure::PermissionDenied, Detail::Hidden, "データベースが読み取り専用のため、書き込めません。"},
    {SQLITE_PERM, Failure::PermissionDenied, Detail::Hidden, "データベースを使う権限がありません。"},
    {SQLITE_CANTOPEN, Failure::PathFileAccess, Detail::Hidden,
     "データベースのファイルまたは作業用のファイルを開けません。"},
    {SQLITE_FULL, Failure::DiskFull, Detail::Hidden,
     "ディスクの空き容量が足りないため、データベースに書き込めません。"},
    {SQLITE_IOERR_NOMEM, Failure::OutOfMemory, Detail::Hidden, "データベースを使うためのメモリが足りません。"},
    {SQLITE_IOERR, Failure::DeviceIo, Detail::Hidden,
     "データベースの読み書き中にエラーが発生しました。ディスクとネットワークを確認してください。"},
    {SQLITE_CORRUPT, Failure::DeviceIo, Detail::Hidden,
     "データベースのファイルが壊れています。バックアップから戻してください。"},
    {SQLITE_NOTADB, Failure::DeviceIo, Detail::Hidden,
     "データベースのファイルを読めません。壊れているか、暗号化されています。"},
    {SQLITE_NOMEM, Failure::OutOfMemory, Detail::Hidden, "データベースを使うためのメモリが足りません。"},
    {SQLITE_TOOBIG, Failure::Overflow, Detail::Hidden, "データが長すぎて、データベースで扱えません。"},
    {SQLITE_CONSTRAINT_PRIMARYKEY, Failure::InvalidCall, Detail::Shown, "同じキーのデータがすでに登録されています。"},
    {SQLITE_CONSTRAINT_UNIQUE, Failure::InvalidCall, Detail::Shown, "同じキーのデータがすでに登録されています。"},
    {SQLITE_CONSTRAINT_NOTNULL, Failure::InvalidCall, Detail::Shown, "値が必要な項目が空です。"},
    {SQLITE_CONSTRAINT, Failure::InvalidCall, Detail::Shown, "データベースの決まりに合わない値です。"},
    {SQLITE_INTERRUPT, Failure::TimedOut, Detail::Hidden,
     "データベースの処理が時間内に終わらないため、取り消されました。"},
    {SQLITE_AUTH, Failure::InvalidCall, Detail::Shown,
     "データベースの設定を変える文や、更新の中でほかのデータを読む文は実行できません。"},
});

constexpr EngineResult kStatementRefused{SQLITE_ERROR, Failure::InvalidCall, Detail::Shown,
                                         "データベースへの命令を実行できません。"};

const EngineResult& rowFor(int result) {
    for (const int number : {result, result & 0xff}) {
        for (const EngineResult& row : kResults) {
            if (row.result == number) {
                return row;
            }
        }
    }
    return kStatementRefused;
}

/// The engine has no result of its own for this.
bool isMissingColumn(int result, std::string_view detail) {
    return result == SQLITE_ERROR &&
           (detail.starts_with("no such column: ") || detail.find(" has no column named ") != std::string_view::npos);
}

}  // namespace

StoreFailure sqliteFailure(int result, std::string_view detail) {
    if (isMissingColumn(result, detail)) {
        return missingColumnFailure(detail);
    }
    const EngineResult& row = rowFor(result);
    return {row.number, "DB" + std::to_string(result),
            withDetail(row.text, row.detail == Detail::Shown ? detail : std::string_view())};
}

}  // namespace orv
