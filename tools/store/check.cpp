#include <cstdio>
#include <ctime>

#include "adapters/store/fetched_rows.h"
#include "adapters/store/store_failure.h"
#include "keeper.h"
#include "table_copy.h"

namespace orv {
namespace {

/// A select whose rows are each something found: the company or word, and what is wrong with it.
struct Question {
    const char* what;
    std::string sql;
};

std::string without(const std::string& table, const std::string& other) {
    return "SELECT USER_ID FROM " + table + " WHERE USER_ID NOT IN (SELECT USER_ID FROM " + other +
           ") ORDER BY USER_ID";
}

/// Companies whose word is in no list of that type, deleted rows left out: the page can't show it.
std::string unknownWord(const std::string& column, const std::string& table, const std::string& type) {
    return "SELECT USER_ID FROM " + table + " WHERE " + column + " <> '' AND " + column +
           " NOT IN (SELECT ITEM_NAME FROM MST_OTHERS WHERE TYPE_CODE = '" + type + "' AND DEL_FLAG = FALSE)" +
           " ORDER BY USER_ID";
}

std::string emptyList(const std::string& type) {
    return "SELECT '" + type + "' WHERE NOT EXISTS (SELECT 1 FROM MST_OTHERS WHERE TYPE_CODE = '" + type +
           "' AND DEL_FLAG = FALSE)";
}

std::vector<Question> questions() {
    const std::string info = "TBL_CUSTOMER_INFO";
    const std::string add = "TBL_CUSTOMER_ADD";
    const std::string date = "TBL_CUSTOMER_DATE";
    std::vector<Question> all = {
        {"no row in TBL_CUSTOMER_ADD: the company does not open", without(info, add)},
        {"no row in TBL_CUSTOMER_DATE: the company can't be saved", without(info, date)},
        {"a row in TBL_CUSTOMER_ADD of no company", without(add, info)},
        {"a row in TBL_CUSTOMER_DATE of no company", without(date, info)},
        {"a lock on no company",
         "SELECT USER_ID FROM TBL_LOCK WHERE USER_ID <> '---------' AND PROPERTY_TYPE_CODE = 'COS'"
         " AND USER_ID NOT IN (SELECT USER_ID FROM TBL_CUSTOMER_INFO) ORDER BY USER_ID"},
        {"LICENSE_NO is in no list", unknownWord("LICENSE_NO", info, "002")},
        {"GET_LICENSE_NENGOU is in no list", unknownWord("GET_LICENSE_NENGOU", info, "003")},
        {"VALID_LICENSE_NENGOU is in no list", unknownWord("VALID_LICENSE_NENGOU", info, "003")},
        {"DANTAI_NAME is in no list", unknownWord("DANTAI_NAME", info, "004")},
        {"PHOTO_GRP1 is in no list", unknownWord("PHOTO_GRP1", add, "005")},
        {"PHOTO_GRP2 is in no list", unknownWord("PHOTO_GRP2", add, "005")},
    };
    for (const char* type : {"002", "003", "004", "005"}) {
        all.push_back({"MST_OTHERS has no word of this type: a page does not open", emptyList(type)});
    }
    return all;
}

class Check {
public:
    explicit Check(StoreConnection& store) : store_(store) {
        report_.facts = {{"tables", nlohmann::ordered_json::object()},
                         {"findings", nlohmann::ordered_json::array()},
                         {"locks", nlohmann::ordered_json::array()}};
    }

    StoreReport run() {
        asked("damage", [&] {
            for (const std::string& damage : store_.damages()) {
                found("damage", damage);
            }
        });
        for (const char* table : kOfficeTables) {
            asked(table, [&] { readTable(table); });
        }
        for (const Question& question : questions()) {
            asked(question.what, [&] {
                for (const std::string& what : firstTexts(store_.select(question.sql, {}))) {
                    found(what, question.what);
                }
            });
        }
        asked("locks", [&] { listLocks(); });
        return std::move(report_);
    }

private:
    void found(const std::string& where, const std::string& what) {
        report_.ending = Ending::Findings;
        report_.facts["findings"].push_back({{"where", where}, {"what", what}});
        report_.say(where + ": " + what);
    }

    /// What can't be asked is a finding too; the check goes on.
    template <typename Ask>
    void asked(const std::string& what, Ask ask) {
        try {
            ask();
        } catch (const StoreFailure& failure) {
            found(what, failure.description() + " [" + failure.code() + "]");
        }
    }

    void readTable(const std::string& table) {
        const RecordsetPtr rows = store_.select("SELECT * FROM " + table, {});
        report_.facts["tables"][table] = rows->RecordCount();
        report_.say(table + ": " + std::to_string(rows->RecordCount()) + " rows");
    }

    void listLocks() {
        const RecordsetPtr rows =
            store_.select("SELECT USER_ID, LOCAL_INFO, INSERT_DATE FROM TBL_LOCK ORDER BY INSERT_DATE, USER_ID", {});
        for (; !rows->Eof(); rows->MoveNext()) {
            const std::string user = toText(rows->Fields(0));
            const std::string computer = toText(rows->Fields(1));
            const std::string since = rows->Fields(2).isNull() ? "" : toText(rows->Fields(2));
            const std::string age = ageOf(since);
            report_.facts["locks"].push_back(
                {{"company", user}, {"computer", computer}, {"since", since}, {"hours", age}});
            report_.say("lock: " + user + " by " + computer + " since " + since +
                        (age.empty() ? "" : ", " + age + " hours"));
        }
    }

    /// Whole hours since a lock's time, in the local time that the terminals write; empty where it is none.
    static std::string ageOf(const std::string& since) {
        std::tm time{};
        time.tm_isdst = -1;
        if (std::sscanf(since.c_str(), "%4d/%2d/%2d %2d:%2d:%2d", &time.tm_year, &time.tm_mon, &time.tm_mday,
                        &time.tm_hour, &time.tm_min, &time.tm_sec) != 6) {
            return {};
        }
        time.tm_year -= 1900;
        time.tm_mon -= 1;
        return std::to_string(static_cast<long>(std::difftime(std::time(nullptr), std::mktime(&time)) / 3600));
    }

    StoreConnection& store_;
    StoreReport report_;
};

}  // namespace

StoreReport checkStore(const Options& options) { return Check(*openStore(options.store)).run(); }

}  // namespace orv
