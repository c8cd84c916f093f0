#pragma once

#include <optional>
#include <string>
#include <vector>

#include "adapters/posix/install_paths.h"
#include "platform/machine/program_starter.h"

namespace orv {

/// Starts the other programs of the suite: files of the install such as KELT_MENU.EXE, which hold a program or a script
/// of this machine. They run in a session of their own, live on when this program ends, get no input and share
/// its two outputs.
///
/// Arguments are separated by blanks outside double quotes. The quotes are removed; a backslash is an ordinary
/// character.
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
    std::optional<std::string> fileAt(const std::string& path) const;

    const InstallPaths& paths_;
};

}  // namespace orv
