// write_seeds FOLDER: writes the seeds of each target to its own folder, as the fuzzer's initial inputs.
#include "fuzz/fuzz_target.h"
#include "support/temp_folder.h"

int main(int argc, char* argv[]) {
    if (argc != 2) return 2;
    for (const auto& target : orv::test::fuzzTargets()) {
        const auto folder = std::filesystem::path(argv[1]) / target.name;
        std::filesystem::create_directories(folder);
        for (std::size_t i = 0; i < target.seeds.size(); ++i) {
            orv::writeFile(folder / ("seed" + std::to_string(i)), target.seeds[i]);
        }
    }
}
