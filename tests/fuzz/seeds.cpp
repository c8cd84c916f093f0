// seeds FOLDER: a small picture of each kind, for the fuzzer to begin with.
#include <fstream>

#include "adapters/pictures/made_pictures.h"

int main(int argc, char* argv[]) {
    using namespace orv::test;
    if (argc != 2) {
        return 2;
    }
    const std::filesystem::path folder = argv[1];
    std::filesystem::create_directories(folder);
    int count = 0;
    for (const ByteVector& bytes :
         {madeJpeg({.width = 33, .height = 17, .orientation = 6}),
          madeJpeg({.width = 33, .height = 17, .progressive = true}),
          madeJpeg({.width = 17, .height = 9, .input = JCS_CMYK, .stored = JCS_YCCK}), madeByQt("png", 9, 9),
          madeByQt("bmp", 9, 9), madeRunLengthBmp(9, 9), madeGif(9, 9)}) {
        std::ofstream(folder / std::to_string(count++), std::ios::binary)
            .write(reinterpret_cast<const char*>(bytes.data()), static_cast<std::streamsize>(bytes.size()));
    }
}
