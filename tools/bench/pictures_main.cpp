// bench_pictures fit|thumb|factors PHOTOS WORK: the photos are *.jpg of the folder PHOTOS.
#include <algorithm>
#include <iostream>

#include "pictures_bench.h"

namespace bench {

std::vector<std::filesystem::path> photosIn(const std::filesystem::path& folder) {
    std::vector<std::filesystem::path> photos;
    for (const auto& entry : std::filesystem::directory_iterator(folder)) {
        if (entry.path().extension() == ".jpg") {
            photos.push_back(entry.path());
        }
    }
    std::ranges::sort(photos);
    return photos;
}

}  // namespace bench

int main(int argc, char* argv[]) {
    const std::vector<std::string> given(argv + 1, argv + argc);
    if (given.size() == 3 && given[0] == "fit") {
        // One of the peers resolves a relative path from the folder of the photo.
        bench::fit(given[1], std::filesystem::absolute(given[2]), FIT_ONE);
    } else if (given.size() == 3 && given[0] == "thumb") {
        bench::thumb(given[1]);
    } else if (given.size() == 3 && given[0] == "factors") {
        bench::factors(given[1], given[2]);
    } else {
        std::cerr << "bench_pictures fit|thumb|factors PHOTOS WORK\n";
        return 2;
    }
    return 0;
}
