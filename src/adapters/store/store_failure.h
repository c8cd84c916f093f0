#pragma once

#include <string>
#include <string_view>

#include "platform/run_time_error.h"

namespace orv {

/// Why the store refused: besides number and text a code that names the cause in the log. The codes are "DB" and the
/// engine's own result where the engine refused; "DBFILE", "DBSQL", "DBTRAN" or "DBCONN" and two digits where an
/// adapter did.
class StoreFailure : public RunTimeError {
public:
    StoreFailure(Failure number, std::string code, std::string description);

    const std::string& code() const noexcept { return code_; }

private:
    std::string code_;
};

/// What an adapter itself refuses.
struct StoreRefusal {
    std::string_view code;
    Failure number;
    std::string_view text;
};

/// Throws the StoreFailure of `refusal`; `detail`, where there is any, is added in brackets.
[[noreturn]] void refuse(const StoreRefusal& refusal, std::string_view detail = {});

/// `text` and, where there is any, `detail` in brackets, which are words from outside and are made printable.
std::string withDetail(std::string_view text, std::string_view detail);

// The refusals that no engine differs in.
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
