// bench FOLDER [start|save|list]: one line a benchmark. FOLDER: where offices are made.
// bench FOLDER window PHOTO: the page of the photos.
// bench FOLDER clicks PHOTO: the time from an input to the last painting.
// bench FOLDER soak [MINUTES]: whether the program grows.
#include <cstdlib>
#include <exception>
#include <iostream>

#include "bench.h"

namespace {

void run(int argc, char* argv[]) {
    const std::string folder = argv[1];
    const std::string only = argc > 2 ? argv[2] : "";
    if (only.empty() || only == "start") {
        bench::print("start", bench::start(folder));
    }
    if (only.empty() || only == "save") {
        bench::print("save", bench::save(folder));
    }
    if (only.empty() || only == "list") {
        bench::print("list100000", bench::list(folder, 100000));
        bench::print("list10000", bench::list(folder, 10000));
    }
    if (only == "window" && argc == 4) {
        bench::window(folder, argv[3]);
    }
    if (only == "clicks" && argc == 4) {
        bench::clicks(folder, argv[3]);
    }
    if (only == "soak") {
        bench::soak(folder, argc > 3 ? std::atof(argv[3]) : 0);
    }
}

}  // namespace

/// Programs that a benchmark has started end with it, also when it fails.
int main(int argc, char* argv[]) {
    if (argc < 2) {
        std::cerr << "bench FOLDER [start|save|list]\n";
        return 2;
    }
    try {
        run(argc, argv);
        return 0;
    } catch (const std::exception& failure) {
        std::cerr << "bench: " << failure.what() << "\n";
        return 1;
    }
}
