// A program of the suite for the test of starting one: writes each argument in brackets to the file `out` next to it.
#include <cstdio>
#include <string>

int main(int count, char* arguments[]) {
    const std::string program = arguments[0];
    const std::string folder = program.substr(0, program.find_last_of("\\/") + 1);
    std::FILE* out = std::fopen((folder + "new").c_str(), "wb");
    for (int i = 1; out != nullptr && i < count; ++i) {
        std::fprintf(out, "[%s]", arguments[i]);
    }
    return out != nullptr && std::fclose(out) == 0 ? std::rename((folder + "new").c_str(), (folder + "out").c_str())
                                                   : 1;
}
