// bench_fit_one SOURCE TARGET WIDTH HEIGHT LIMIT: fits one JPEG file, in a process whose time and memory are measured.
// bench_fit_one: does nothing, to measure the cost of a process.
#include <string>

#include "pictures_bench.h"

int main(int argc, char* argv[]) {
    if (argc == 6) {
        bench::fitted(argv[1], argv[2], {std::stoi(argv[3]), std::stoi(argv[4])}, std::stoul(argv[5]));
    }
    return 0;
}
