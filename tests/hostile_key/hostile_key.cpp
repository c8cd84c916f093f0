// Runs as soon as it is loaded into a process, and creates a file as proof.

#include <cstdio>
#include <cstdlib>

namespace {

struct Mark {
    Mark() {
        const char* place = std::getenv("HOSTILE_MARK");
        if (std::FILE* file = place == nullptr ? nullptr : std::fopen(place, "w")) {
            std::fclose(file);
        }
    }
} const mark;

}  // namespace
