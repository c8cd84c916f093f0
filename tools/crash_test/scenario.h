#pragma once

#include <string>
#include <vector>

namespace crash_test {

/// The work of an operator in one run.
struct Scenario {
    std::string programFolder;
    std::string company;
    /// The text typed on the pages.
    std::string words;
    /// Photos to drop on the slots of page 2, in the machine's form.
    std::vector<std::string> photos;
    /// The file for the results, one line per event: its name, then the ids and codes of the messages, each after a
    /// "|". "shown" lists the content of page 0 and the available photos.
    std::string report;
};

/// Opens the company, edits all pages, saves and leaves. A failed step is repeated once. A process can run only one.
void runScenario(const Scenario& scenario);

/// Returns a short name for the content of a file.
std::string fingerprint(const std::string& nativePath);

}  // namespace crash_test
