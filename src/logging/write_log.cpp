#include "logging/write_log.h"

#include <algorithm>
#include <array>
#include <optional>
#include <string_view>
#include <utility>

#include "core/record/globals.h"
#include "logging/messages.h"
#include "logging/trap.h"
#include "platform/machine/clock.h"
#include "platform/machine/code_page.h"
#include "platform/machine/file_system.h"
#include "platform/run_time_error.h"
#include "platform/scope.h"
#include "platform/services.h"

namespace orv {
namespace {

constexpr std::uint64_t kRasLimit = 102400;
constexpr std::string_view kLineEnd = "\r\n";

const Values& toList(const Value& value) {
    const auto* list = std::get_if<Values>(&value.content());
    if (list == nullptr) {
        throw RunTimeError(Failure::TypeMismatch);
    }
    return *list;
}

std::string threeValues(const Values& args) {
    return toText(args.at(0)) + "," + toText(args.at(1)) + "," + toText(args.at(2));
}

std::string oneList(const Values& args) {
    std::string record;
    for (const Value& element : toList(args.at(0))) {
        record += toText(element) + ",";
    }
    return record;
}

std::string sixLists(const Values& args) {
    std::string record;
    for (std::size_t row = 0; row < toList(args.at(0)).size(); ++row) {
        record += formatMoment(services().clock->now(), "yyyy/mm/dd hh:nn:ss") + ",";
        for (std::size_t column = 0; column < 6; ++column) {
            record += toText(toList(args.at(column)).at(row)) + ",";
        }
        record += kLineEnd;
    }
    return record;
}

/// Renames "ras.log" to "rasbk.log" in the same folder and overwrites the older backup.
void rotate(const std::string& path) {
    FileSystem& files = *services().fileSystem;
    if (!files.exists(path) || files.fileSize(path) <= kRasLimit) {
        return;
    }
    const std::size_t split = path.rfind('\\') + 1;
    const std::string name = path.substr(split);
    const std::string backup = path.substr(0, split) + name.substr(0, 3) + "bk" +
                               name.substr(name.size() - std::min<std::size_t>(4, name.size()));
    if (files.exists(backup)) {
        files.remove(backup);
    }
    files.rename(path, backup);
}

struct LogKind {
    std::string_view kind;
    std::string (*record)(const Values& args);
    std::function<std::string()> LogFiles::*file;
    bool rotates;
};

constexpr std::array<LogKind, 5> kKinds{{
    {"ERR", threeValues, &LogFiles::err, false},
    {"RAS", threeValues, &LogFiles::ras, true},
    {"SND", oneList, &LogFiles::snd, false},
    {"RCV", sixLists, &LogFiles::rcv, false},
    {"DWL", threeValues, &LogFiles::dwl, false},
}};

/// A log that could not be written, and the file that holds the record instead.
struct Refusal {
    std::string log;
    std::string instead;
};

bool isRefused(const std::optional<RunTimeError>& failure) {
    return failure && failure->number() == static_cast<int>(Failure::PathFileAccess);
}

/// Any user of an office can put a file or link in a log's place. The record then goes where only this user can write.
void append(const std::string& path, const std::string& record, std::optional<Refusal>& refusal) {
    FileSystem& files = *services().fileSystem;
    const auto failure = caught([&] { files.append(path, record); });
    if (isRefused(failure)) {
        const std::string instead = files.privateFolder() + "\\" + path.substr(path.rfind('\\') + 1);
        files.append(instead, record);
        refusal = {path, instead};
    } else if (failure) {
        throw RunTimeError(*failure);
    }
}

bool write(const LogKind& kind, const Values& args, std::optional<Refusal>& refusal) {
    const std::string record = kind.record(args);
    const std::string path = (logFiles().*kind.file)();
    if (kind.rotates) {
        rotate(path);
    }
    append(path, services().codePage->encode(record + std::string(kLineEnd)), refusal);
    return true;
}

void reportOnce(const Refusal& refusal) {
    if (!std::exchange(theContext.logRefusalShown, true)) {
        static_cast<void>(caught([&] { showMessage("LOG00001", {refusal.log, refusal.instead}); }));
    }
}

}  // namespace

LogFiles& logFiles() {
    static LogFiles theLogFiles;
    return theLogFiles;
}

bool bas_WriteLog::PF_WriteLog(const std::string& kind, const Values& args) {
    if (theContext.writingLog) {
        return false;
    }
    std::optional<Refusal> refusal;
    const bool fine = trapped("[ PF_WriteLog ] ", [&] {
        const FlagGuard writing(theContext.writingLog);
        const auto* known =
            std::find_if(kKinds.begin(), kKinds.end(), [&](const LogKind& row) { return row.kind == kind; });
        if (known == kKinds.end()) {
            return fail("[ PF_WriteLog ] 指定されたタイプは有りません。", "ECOM4001");
        }
        return write(*known, args, refusal);
    });
    if (refusal) {
        reportOnce(*refusal);
    }
    return fine;
}

void logError(const Value& code, const Value& text) { PF_WriteLog("ERR", {services().clock->now(), code, text}); }

void logPair() { logError(gErrCode, gErrMsg); }

}  // namespace orv
