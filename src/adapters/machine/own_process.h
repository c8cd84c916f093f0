#pragma once

#include <string>
#include <vector>

namespace orv {

/// Prevents the system from writing the program's memory, which can contain passwords, to a file after a crash.
void keepMemoryPrivate();

/// Makes a broken connection or output a failure of the call, on a system that would end the program.
void surviveBrokenConnections();

/// Makes a console show the program's output as UTF-8 until the program ends.
void writeUtf8ToConsole();

/// Returns the arguments after the program's name, in UTF-8. `count` and `arguments` are those of main().
std::vector<std::string> programArguments(int count, char* arguments[]);

}  // namespace orv
