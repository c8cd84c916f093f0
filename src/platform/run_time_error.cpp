#include "platform/run_time_error.h"

#include <array>
#include <utility>

namespace orv {
namespace {

constexpr auto kDescriptions = std::to_array<std::pair<Failure, std::string_view>>({
    {Failure::InvalidCall, "引数またはその場での操作が正しくありません。"},
    {Failure::Overflow, "数値が大きすぎます。"},
    {Failure::OutOfMemory, "メモリが足りません。"},
    {Failure::SubscriptOutOfRange, "インデックスが有効範囲にありません。"},
    {Failure::TypeMismatch, "型が一致しません。"},
    {Failure::Internal, "プログラムの内部でエラーが発生しました。"},
    {Failure::BadFileName, "ファイル名が正しくありません。"},
    {Failure::FileNotFound, "ファイルが見つかりません。"},
    {Failure::FileAlreadyOpen, "ファイルは既に開かれています。"},
    {Failure::DeviceIo, "ファイルの読み書き中にエラーが発生しました。"},
    {Failure::FileExists, "同じ名前のファイルが既にあります。"},
    {Failure::DiskFull, "ディスクの空き容量が足りません。"},
    {Failure::PermissionDenied, "書き込みが許可されていません。"},
    {Failure::PathFileAccess, "パスまたはファイルにアクセスできません。"},
    {Failure::PathNotFound, "パスが見つかりません。"},
    {Failure::ObjectNotSet, "操作の対象がありません。"},
    {Failure::InvalidNull, "値のない項目を値として使いました。"},
    {Failure::InvalidPropertyValue, "設定できない値です。"},
    {Failure::TextNotInList, "一覧にない文字列は設定できません。"},
    {Failure::ConnectionFailed, "サーバーに接続できません。"},
    {Failure::TimedOut, "サーバーから応答がありません。"},
    {Failure::DialogCancelled, "ファイルの選択が取り消されました。"},
});

}  // namespace

std::string_view describe(Failure failure) {
    for (const auto& [known, text] : kDescriptions) {
        if (known == failure) {
            return text;
        }
    }
    return "不明なエラーです。";
}

RunTimeError::RunTimeError(Failure failure) : RunTimeError(failure, std::string(describe(failure))) {}

RunTimeError::RunTimeError(Failure failure, std::string description)
    : RunTimeError(static_cast<int>(failure), std::move(description)) {}

RunTimeError::RunTimeError(int number, std::string description)
    : number_(number), description_(std::move(description)) {}

}  // namespace orv
