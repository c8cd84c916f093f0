#pragma once

#include <functional>
#include <string>

#include "headless.h"
#include "ledger.h"

namespace bench {

/// One run of the program on one terminal. A process can have only one. Each event is written to the ledger. Functions
/// return false after a failure, when the run should end.
class Terminal {
public:
    /// The suite's server accepts every company at once, after its rows have been read as for sending.
    Terminal(const std::string& programFolder, std::string ledger);

    /// False also if another terminal has the company.
    bool open(const std::string& company);
    /// Returns true also if another terminal has the company; this terminal then keeps its own. Does nothing for the
    /// current company.
    bool switchTo(const std::string& company);
    /// Writes the company with its count increased by one.
    bool save();
    /// Does nothing if the program has not shown its first page.
    void leave();

private:
    /// Returns the result: as requested, refused or failed.
    Deed perform(Deed wish, const std::string& company, const std::function<void()>& work);

    headless::Program program_;
    std::string ledger_;
    Span taken_;
};

}  // namespace bench
