// The argument string: a page is shown, or the operator told; the store's tables stand whatever the string holds.
#include "fuzz/office_run.h"

namespace orv::test {
namespace {

class Starts : public OfficeRun {
public:
    void runWith(const std::string& tail) {
        start(tail);
        require(!forms.forms().empty() || !shownIds().empty(), "a page or a message");
        endRun();
        require(store.open == 0, "no connection is left open");
        require(everything() == companies_ && one(kTables) == tables_, "no company and no table is touched");
        messages.shown.clear();
        windows.calls.clear();
        programs.commandLines.clear();
        if (const std::string log = com().LogErrFile(); files.exists(log)) {
            files.remove(log);
        }
    }

private:
    static constexpr const char* kTables = "select count(*) from sqlite_master";

    std::vector<std::string> companies_ = everything();
    std::string tables_ = one(kTables);
};

void run(const std::string& bytes) {
    // Longer ones are only slower: the statement that they go into is refused all the same.
    if (bytes.size() <= 4096) {
        officeOf<Starts>().runWith(bytes);
    }
}

}  // namespace

FuzzTarget argumentTarget() {
    return {"argument",
            run,
            {"000004601,1,0", "---------,1,1", "000004606,1,0", "000009999,0,0", " , ,", "a,1E2,-0.5,x",
             "'; drop table TBL_LOCK; --,1,0", "x' or ''='',1,0", "\"000004601\",1,0", "ソ\xFF,１,0"}};
}

}  // namespace orv::test
