#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <tiffio.h>
#include <unistd.h>

#include <QImage>
#include <algorithm>
#include <array>
#include <map>
#include <memory>

#include "adapters/pictures/picture_files.h"
#include "adapters/pixels/picture_failure.h"
#include "adapters/raster/raster_formats.h"
#include "support/catch_failure.h"
#include "support/made_pictures.h"

namespace orv::test {
namespace {

struct Cost {
    /// The failure with which the picture was rejected, 0 if it was read, -1 if the child ended otherwise.
    int failure = -1;
    /// The child's peak memory, including the pages inherited from its parent.
    double megabytes = 0;
};

/// The processor time after which a child is ended. The largest picture needs a second or two.
constexpr rlimit kWork{60, 60};
constexpr unsigned kStandstill = 600;
constexpr double kMegabytes = 650;
#if defined(__SANITIZE_ADDRESS__)
constexpr double kLarger = 4;
#else
constexpr double kLarger = 1;
#endif

/// Reads header and picture in a separate process, so that a hang or a crash ends only that process.
Cost measureCost(const PictureFiles& pictures, const std::string& path) {
    std::array<int, 2> wire{};
    EXPECT_EQ(pipe(wire.data()), 0);
    const pid_t child = fork();
    if (child == 0) {
        EXPECT_EQ(setrlimit(RLIMIT_CPU, &kWork), 0);
        alarm(kStandstill);
        const int header = catchFailure([&] { (void)pictures.info(path); });
        const int whole = catchFailure([&] { (void)pictures.load(path, {640, 480}); });
        const int result = header == 0 || header == whole ? whole : -1;
        _exit(write(wire[1], &result, sizeof result) == sizeof result ? 0 : 1);
    }
    close(wire[1]);
    Cost cost;
    rusage used{};
    wait4(child, nullptr, 0, &used);
    EXPECT_GE(read(wire[0], &cost.failure, sizeof cost.failure), 0);
    close(wire[0]);
    cost.megabytes = static_cast<double>(used.ru_maxrss) / 1024;
    return cost;
}

/// Each pass walks over the whole picture, and a few bytes are enough to ask for one.
ByteVector withManyPasses(ByteVector jpeg) {
    const ByteVector scanMark{0xFF, 0xDA};
    const auto lastScan = std::find_end(jpeg.begin(), jpeg.end(), scanMark.begin(), scanMark.end()) - jpeg.begin();
    const ByteVector scan(jpeg.begin() + lastScan, jpeg.end() - 2);
    for (int i = 0; i < 7000; ++i) jpeg.insert(jpeg.end() - 2, scan.begin(), scan.end());
    return jpeg;
}

/// Returns 100 million black pixels.
QImage makeBomb(QImage::Format pixels) {
    QImage large(10000, 10000, pixels);
    large.fill(0);
    return large;
}

/// Writes the same as a TIFF in tiles.
std::string tiledBomb(const std::string& path) {
    const std::unique_ptr<TIFF, decltype(&TIFFClose)> tiff(TIFFOpen(path.c_str(), "w"), TIFFClose);
    for (const auto& [tag, value] : std::map<std::uint32_t, int>{{TIFFTAG_IMAGEWIDTH, 10000},
                                                                 {TIFFTAG_IMAGELENGTH, 10000},
                                                                 {TIFFTAG_BITSPERSAMPLE, 8},
                                                                 {TIFFTAG_PHOTOMETRIC, PHOTOMETRIC_MINISBLACK},
                                                                 {TIFFTAG_COMPRESSION, COMPRESSION_PACKBITS},
                                                                 {TIFFTAG_TILEWIDTH, 2000},
                                                                 {TIFFTAG_TILELENGTH, 2000}}) {
        EXPECT_EQ(TIFFSetField(tiff.get(), tag, value), 1) << tag;
    }
    ByteVector black(4'000'000);
    for (std::uint32_t tile = 0; tile < 25; ++tile) {
        EXPECT_GE(TIFFWriteEncodedTile(tiff.get(), tile, black.data(), std::ssize(black)), 0);
    }
    return path;
}

class HostilePicturesTest : public testing::Test {
protected:
    std::string keep(const ByteVector& bytes) { return folder.keep(std::to_string(++kept_), bytes); }
    int measureLoad(const std::string& path) const {
        return catchFailure([&] { (void)pictures.load(path); });
    }

    PictureFolder folder;
    PictureFiles pictures{folder};

private:
    int kept_ = 0;
};

TEST_F(HostilePicturesTest, FailWhereverTheyAreCutShort) {
    const struct {
        std::string name;
        ByteVector bytes;
        /// The number of bytes at the end that contain no picture data.
        std::size_t tail;
    } cases[] = {
        {"jpeg", madeJpeg({.width = 640, .height = 480}), 0},
        {"progressive", madeJpeg({.width = 640, .height = 480, .progressive = true}), 0},
        {"reduced", madeJpeg({.width = 8400, .height = 600}), 0},
        {"png", madeByQt("png", 640, 480), 12},
        {"bmp", madeByQt("bmp", 640, 480), 0},
        {"run length", madeRunLengthBmp(300, 200), 0},
        {"gif", madeGif(100, 80), 4},
    };
    for (const auto& one : cases) {
        ASSERT_EQ(measureLoad(folder.keep("whole", one.bytes)), 0) << one.name;
        const std::size_t last = one.bytes.size() - one.tail - 1;
        for (const std::size_t length :
             {std::size_t{8}, std::size_t{31}, std::size_t{70}, last / 4, last / 2, last * 9 / 10, last - 1, last}) {
            const ByteVector start(one.bytes.begin(), one.bytes.begin() + static_cast<std::ptrdiff_t>(length));
            EXPECT_NE(measureLoad(folder.keep("cut", start)), 0) << one.name << " cut at " << length;
        }
    }
}

TEST_F(HostilePicturesTest, AreReadOrNamedAtABoundedCost) {
    const ByteVector jpeg = madeJpeg({.width = 640, .height = 480});
    const ByteVector passes = madeJpeg({.width = 640, .height = 480, .progressive = true});
    const ByteVector passesOfThree = madeJpeg({.stored = JCS_RGB, .progressive = true});
    const ByteVector png = madeByQt("png", 64, 48);
    const ByteVector bmp = madeByQt("bmp", 64, 48);
    const ByteVector gif = madeGif(64, 48);
    QImage grey(64, 48, QImage::Format_Grayscale8);
    grey.fill(7);
    const ByteVector tiff = tiffBytes({grey, {}, {}}, {PictureFormat::Tiff, 64, 48, 8, 1});
    const ByteVector tiffBomb =
        tiffBytes({makeBomb(QImage::Format_Grayscale8), {}, {}}, {PictureFormat::Tiff, 10000, 10000, 8, 1});
    const std::string pngBomb = folder.pathTo("colours.png");
    ASSERT_TRUE(makeBomb(QImage::Format_RGB32).save(QString::fromStdString(pngBomb), nullptr, 85));
    const std::string fifo = folder.pathTo("fifo");
    ASSERT_EQ(mkfifo(fifo.c_str(), 0600), 0);
    const std::string huge = keep(jpeg);
    std::filesystem::resize_file(huge, 500'000'001);
    const auto sized = [&tiff](int side) { return withTiffNumber(withTiffNumber(tiff, 0, 0, side), 1, 1, side); };

    using enum PictureFailure;
    constexpr auto kRead = PictureFailure{};
    const struct {
        std::string name, path;
        PictureFailure failure;
    } cases[] = {
        {"passes without end", keep(withManyPasses(passes)), NeedsTooMuchMemory},
        {"garbage", keep(changed(ByteVector(1 << 20, 0x5A), 0, {0xFF, 0xD8, 0xFF})), Damaged},
        {"no bytes", keep({}), Empty},
        {"text", keep({'n', 'o', ' ', 'p', 'i', 'c', 't', 'u', 'r', 'e'}), UnknownFormat},
        {"12 bits", keep(changed(jpeg, frameHeader(jpeg) + 4, {12})), UnsupportedKind},
        {"taller than it is", keep(withJpegSize(jpeg, 640, 1000)), Damaged},
        {"1 x 65535", keep(withJpegSize(jpeg, 1, 65535)), TooManyPixels},
        {"just too many", keep(withJpegSize(jpeg, 10000, 10001)), TooManyPixels},
        {"10000 x 10000 out of a few bytes", keep(withJpegSize(jpeg, 10000, 10000)), Damaged},
        {"10000 x 10000 in passes", keep(withJpegSize(passes, 10000, 10000)), Damaged},
        {"96 million pixels in passes", keep(withJpegSize(passesOfThree, 12000, 8000)), NeedsTooMuchMemory},
        {"4 GB claimed", keep(changed(png, 16, {0x7F, 0xFF, 0xFF, 0xFF, 0, 0, 0, 1})), TooManyPixels},
        {"png with a wrong sum", keep(changed(png, png.size() / 2, {0, 0, 0, 0})), Damaged},
        {"png of deep colours", keep(changed(png, 16, {0, 0, 0x27, 0x10, 0, 0, 0x27, 0x10, 16})), NeedsTooMuchMemory},
        {"bmp of 4 GB", keep(changed(bmp, 18, {0xFF, 0xFF, 0xFF, 0x7F})), TooManyPixels},
        {"gif of 10000 x 10000", keep(changed(changed(gif, 6, {0x10, 0x27, 0x10, 0x27}), 50, {0x10, 0x27, 0x10, 0x27})),
         Damaged},
        {"gif that claims 65535 x 65535", keep(changed(gif, 6, {0xFF, 0xFF, 0xFF, 0xFF})), TooManyPixels},
        {"gif with a frame of 60000 x 60000", keep(changed(gif, 50, {0x60, 0xEA, 0x60, 0xEA})), TooManyPixels},
        {"gif whose frame holds too little", keep(changed(gif, 50, {65, 0, 49, 0})), Damaged},
        {"gif with a code beyond its table", keep(changed(gif, 57, {0xFF})), Damaged},
        {"tiff of 10000 x 10000", keep(sized(10000)), Damaged},
        {"tiff that claims 60000 x 60000", keep(sized(60000)), TooManyPixels},
        {"a folder", std::filesystem::path(fifo).parent_path(), NotAFile},
        {"a named pipe", fifo, NotAFile},
        {"beyond a named pipe", fifo + "/beyond", PictureFailure{76}},
        {"no name", "", PictureFailure{52}},
        {"no file", folder.pathTo("gone"), PictureFailure{53}},
        {"half a gigabyte", huge, FileTooLarge},
        // These pictures are valid and are read. The limit on pixels limits their cost.
        {"png of 100 million pixels", pngBomb, kRead},
        {"gif of 100 million pixels",
         keep(gifBytes({makeBomb(QImage::Format_Indexed8), {0xFF000000U, 0xFFFFFFFFU}, {}})), kRead},
        {"tiff of 100 million pixels", keep(tiffBomb), kRead},
        {"the same in tiles", tiledBomb(keep({})), kRead},
        {"the same turned", keep(withTiffNumber(tiffBomb, 0x16, 0x12, 6)), kRead},
    };
    for (const auto& one : cases) {
        const Cost cost = measureCost(pictures, one.path);
        EXPECT_EQ(cost.failure, static_cast<int>(one.failure)) << one.name;
        EXPECT_LT(cost.megabytes, kMegabytes * kLarger) << one.name;
    }
}

}  // namespace
}  // namespace orv::test
