#pragma once

#include <string>
#include <string_view>

#include "platform/run_time_error.h"

namespace orv {

/// A failure of the store. In addition to number and text it has a code for the log. If the engine failed, the code is
/// "DB" and the engine's own result. If an adapter refused, it is "DBFILE", "DBSQL", "DBTRAN" or "DBCONN" and two
/// digits. A missing column has a code common to all engines (`missingColumn`).
class StoreFailure : public RunTimeError {
public:
    StoreFailure(Failure number, std::string code, std::string description);

    const std::string& code() const noexcept { return code_; }

private:
    std::string code_;
};

/// A refusal by an adapter itself.
struct StoreRefusal {
    std::string_view code;
    Failure number;
    std::string_view text;
};

/// Throws the StoreFailure for `refusal`. A non-empty `detail` is added in brackets.
[[noreturn]] void refuse(const StoreRefusal& refusal, std::string_view detail = {});

/// Returns the failure of a statement that names a column that the store does not have, in the engine's `words`.
StoreFailure missingColumnFailure(std::string_view words);

/// Returns `text` and, if not empty, `detail` in brackets. `detail` comes from outside and is made printable.
std::string withDetail(std::string_view text, std::string_view detail);

// The refusals common to all engines.
inline constexpr StoreRefusal kNotOpen{"DBCONN01", Failure::ObjectNotSet, "データベースが開かれていません。"};
inline constexpr StoreRefusal kBadCharacter{"DBSQL01", Failure::InvalidCall,
                                            "データベースへの命令に使えない文字があります。"};
inline constexpr StoreRefusal kNoStatement{"DBSQL02", Failure::InvalidCall, "データベースへの命令が空です。"};
inline constexpr StoreRefusal kManyStatements{"DBSQL03", Failure::InvalidCall,
                                              "データベースへの命令は一度に一つだけ実行できます。"};
inline constexpr StoreRefusal kNoSelect{"DBSQL04", Failure::InvalidCall, "読み出しの命令ではありません。"};
inline constexpr StoreRefusal kNoChange{"DBSQL05", Failure::InvalidCall, "更新の命令ではありません。"};
inline constexpr StoreRefusal kNestedRead{"DBSQL06", Failure::InvalidCall,
                                          "更新の命令の中で、ほかのデータを読むことはできません。"};
inline constexpr StoreRefusal kAnswerTooLong{"DBSQL07", Failure::Overflow, "データベースの応答が大きすぎます。"};
inline constexpr StoreRefusal kTransactionOpen{"DBTRAN01", Failure::InvalidCall,
                                               "トランザクションがすでに始まっています。"};
inline constexpr StoreRefusal kNoTransaction{"DBTRAN02", Failure::InvalidCall,
                                             "トランザクションが始まっていないか、エラーのため取り消されています。"};

}  // namespace orv
