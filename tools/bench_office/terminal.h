#pragma once

#include <functional>
#include <string>

#include "headless.h"
#include "ledger.h"

namespace bench {

/// One run of the program on one terminal, from its start to its end; a process has only one. Each event is written
/// into the ledger. Of each: false, it failed, and the run should end.
class Terminal {
public:
    Terminal(const std::string& programFolder, std::string ledger)
        : program_(programFolder), ledger_(std::move(ledger)) {}

    /// False also where another terminal has the company.
    bool open(const std::string& company);
    /// True also where another terminal has the company, and this one stays where it is. The present one: nothing
    /// happens.
    bool switchTo(const std::string& company);
    /// Writes the company with its count one higher.
    bool save();
    /// Nothing where the program has not come to its first page.
    void leave();

    TracedStore& store() { return program_.store(); }

private:
    /// What became of it: as wished, refused or failed.
    Deed perform(Deed wish, const std::string& company, const std::function<void()>& work);

    Headless program_;
    std::string ledger_;
    Span taken_;
};

}  // namespace bench
