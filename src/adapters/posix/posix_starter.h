#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "adapters/posix/install_paths.h"
#include "platform/machine/program_starter.h"

namespace orv {

/// Starts the other programs of the suite: files of the install such as KELT_MENU.EXE, which hold a program or a script
/// of this machine. They run in a session of their own, live on when this program ends, get no input and share
/// its two outputs.
///
/// A program's name stands in double quotes or ends at a blank; unquoted, the shortest beginning that names a file
/// counts, so that a folder may hold blanks. ".EXE" may be left out. Arguments part at blanks outside double quotes;
/// the quotes go, a backslash is an ordinary character.
class PosixStarter : public ProgramStarter {
public:
    explicit PosixStarter(const InstallPaths& paths) : paths_(paths) {}

    /// What a program gets beside its command line.
    struct Extras {
        /// "NAME=value", in place of this program's own value of that name.
        std::vector<std::string> environment;
        /// An open descriptor that the program and all that it starts keep open as long as they run; -1 for none.
        int lifeLine = -1;
    };

    void start(const std::string& commandLine) override { startWith(commandLine, {}); }
    /// Failure 53 as in start().
    void startWith(const std::string& commandLine, const Extras& extras) const;

private:
    struct Command {
        std::string program;
        std::string_view arguments;
    };
    std::optional<Command> find(std::string_view line) const;
    std::optional<std::string> programFile(std::string_view name) const;

    const InstallPaths& paths_;
};

}  // namespace orv
