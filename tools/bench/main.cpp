// bench FOLDER [start|save|list]: prints one line per benchmark. FOLDER receives the offices.
// bench FOLDER window PHOTO: measures the page of the photos.
// bench FOLDER clicks PHOTO: measures the time from an input to the last painting.
// bench FOLDER soak [MINUTES]: measures the growth of the program.
#include <cstdlib>
#include <exception>
#include <iostream>

#include "bench.h"

namespace {

void run(int argc, char* argv[]) {
    const std::string folder = argv[1];
    const std::string only = argc > 2 ? argv[2] : "";
    if (only.empty() || only == "start") {
        bench::print("start", bench::measureStart(folder));
    }
    if (only.empty() || only == "save") {
        bench::print("save", bench::measureSave(folder));
    }
    if (only.empty() || only == "list") {
        bench::print("list100000", bench::measureList(folder, 100000));
        bench::print("list10000", bench::measureList(folder, 10000));
    }
    if (only == "window" && argc == 4) {
        bench::measureWindow(folder, argv[3]);
    }
    if (only == "clicks" && argc == 4) {
        bench::measureClicks(folder, argv[3]);
    }
    if (only == "soak") {
        bench::measureGrowth(folder, argc > 3 ? std::atof(argv[3]) : 0);
    }
}

}  // namespace

/// If a benchmark fails, the programs that it has started are ended too.
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
