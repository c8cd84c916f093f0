#pragma once

#include <string>
#include <vector>

namespace prove {

/// What an operator comes to do.
struct Errand {
    std::string programFolder;
    std::string company;
    /// What is typed on the pages.
    std::string words;
    /// Photos to drop on the slots of page 2, in the form of the machine.
    std::vector<std::string> photos;
    /// Where to write down what came of it, a line an event: its name, the ids and codes of the messages, each behind
    /// a "|". "shown" says what stands on page 0 and which photos are at hand.
    std::string report;
};

/// Opens the company, edits all pages, saves and leaves; what failed is done once more. A process has only one.
void runErrand(const Errand& errand);

/// A short name for the content of a file.
std::string fingerprintOf(const std::string& nativePath);

}  // namespace prove
