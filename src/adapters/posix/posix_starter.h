#pragma once

#include <optional>
#include <string>
#include <vector>

#include "adapters/posix/install_paths.h"
#include "platform/machine/program_starter.h"

namespace orv {

/// Starts the other programs of the suite: files of the install such as KELT_MENU.EXE, which are programs or scripts of
/// this machine. They run in their own session, continue when this program ends, get no input and share its two
/// outputs.
///
/// Arguments are separated by blanks outside double quotes. The quotes are removed; a backslash is an ordinary
/// character.
class PosixStarter : public ProgramStarter {
public:
    explicit PosixStarter(const InstallPaths& paths) : paths_(paths) {}

    /// Additions to the command line.
    struct Extras {
        /// "NAME=value". Replaces this program's own value of that name.
        std::vector<std::string> environment;
        /// A descriptor that the started program and its own children keep open as long as they run; -1 for none.
        int lifeLine = -1;
    };

    void start(const std::string& commandLine) override { startWith(commandLine, {}); }
    /// Failure 53 as in `start`.
    void startWith(const std::string& commandLine, const Extras& extras) const;

private:
    std::optional<std::string> fileAt(const std::string& path) const;

    const InstallPaths& paths_;
};

}  // namespace orv
