#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <QColor>
#include <QImage>
#include <algorithm>
#include <array>
#include <cstdio>
#include <cstdlib>
#include <stdexcept>

#include "adapters/pictures/gif_file.h"
#include "adapters/pictures/made_pictures.h"
#include "adapters/pictures/picture_failure.h"
#include "adapters/pictures/picture_files.h"
#include "adapters/pictures/quarters.h"
#include "adapters/pictures/tiff_file.h"
#include "support/failure_of.h"

namespace orv::test {
namespace {

/// What a child ends with.
enum Outcome : int { kRead = 0, kRefused = 1 };

struct Cost {
    int outcome = -1;
    /// Of work: what else the machine does is not counted.
    double seconds = 0;
    /// The largest that the child was, what it had of its parent included.
    double megabytes = 0;
};

constexpr double kSeconds = 2;
constexpr double kMegabytes = 650;
#if defined(__SANITIZE_ADDRESS__)
constexpr double kSlower = 10;
constexpr double kLarger = 4;
#else
constexpr double kSlower = 1;
constexpr double kLarger = 1;
#endif

double secondsOf(const timeval& time) {
    return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_usec) / 1e6;
}

/// Header and picture, in a process of its own, which a hang or a crash ends without the others.
Cost costOf(const PictureFiles& pictures, const std::string& path) {
    const pid_t child = fork();
    if (child == 0) {
        alarm(20);
        const int failure = failureOf([&] {
            (void)pictures.info(path);
            (void)pictures.load(path, {640, 480});
        });
        _exit(failure == 0 ? kRead : failure > 0 ? kRefused : 2);
    }
    int status = 0;
    rusage used{};
    wait4(child, &status, 0, &used);
    return {WIFEXITED(status) ? WEXITSTATUS(status) : -1, secondsOf(used.ru_utime) + secondsOf(used.ru_stime),
            static_cast<double>(used.ru_maxrss) / 1024};
}

ByteVector changed(ByteVector bytes, std::size_t at, const ByteVector& to) {
    std::ranges::copy(to, bytes.begin() + static_cast<std::ptrdiff_t>(at));
    return bytes;
}

ByteVector half(const ByteVector& bytes) { return {bytes.begin(), bytes.begin() + std::ssize(bytes) / 2}; }

/// The entry of the number `tag` becomes one of `newTag` and `value`.
ByteVector withTiffNumber(const ByteVector& tiff, std::uint8_t tag, std::uint8_t newTag, int value) {
    const ByteVector entry{tag, 1, 3, 0, 1, 0, 0, 0};
    const auto at = std::search(tiff.begin(), tiff.end(), entry.begin(), entry.end());
    if (at == tiff.end()) {
        throw std::runtime_error("no such entry");
    }
    return changed(
        tiff, static_cast<std::size_t>(at - tiff.begin()),
        {newTag, 1, 3, 0, 1, 0, 0, 0, static_cast<std::uint8_t>(value), static_cast<std::uint8_t>(value >> 8)});
}

void put(ByteVector& bytes, std::size_t number, int length) {
    for (int i = 0; i < length; ++i) {
        bytes.push_back(static_cast<std::uint8_t>(number >> (8 * i)));
    }
}

/// A black TIFF of 10,000 x 10,000, a channel a byte, in runs: one strip or tiles, whose places say that they
/// all lie in the same bytes.
ByteVector tiffBomb(std::size_t channels, bool tiles, std::uint8_t orientation = 1) {
    constexpr std::size_t kSide = 10000;
    constexpr std::size_t kTile = 2000;
    constexpr std::uint8_t kRun = 125;  // rows are whole runs
    const std::size_t pieces = tiles ? (kSide / kTile) * (kSide / kTile) : 1;
    const std::size_t runs = kSide * kSide * channels / pieces / kRun * 2;
    constexpr std::size_t kRuns = 8;
    ByteVector tiff{'I', 'I', 42, 0};
    put(tiff, kRuns + runs + pieces * 8, 4);
    for (std::size_t i = 0; i < runs / 2; ++i) {
        tiff.insert(tiff.end(), {257 - kRun, 0});
    }
    for (const std::size_t number : {kRuns, runs}) {
        for (std::size_t i = 0; i < pieces; ++i) {
            put(tiff, number, 4);
        }
    }
    const std::size_t places = pieces == 1 ? kRuns : kRuns + runs;
    const std::size_t counts = pieces == 1 ? runs : kRuns + runs + pieces * 4;
    std::vector<std::array<std::size_t, 3>> entries{
        {0x100, 1, kSide}, {0x101, 1, kSide}, {0x102, 1, 8}, {0x103, 1, 0x8005}, {0x106, 1, channels == 1 ? 1U : 2U}};
    const std::vector<std::array<std::size_t, 3>> layout =
        tiles ? std::vector<std::array<std::size_t, 3>>{{0x112, 1, orientation}, {0x115, 1, channels},
                                                        {0x142, 1, kTile},       {0x143, 1, kTile},
                                                        {0x144, pieces, places}, {0x145, pieces, counts}}
              : std::vector<std::array<std::size_t, 3>>{
                    {0x111, 1, places}, {0x112, 1, orientation}, {0x115, 1, channels}, {0x117, 1, counts}};
    entries.insert(entries.end(), layout.begin(), layout.end());
    put(tiff, entries.size(), 2);
    for (const auto& [tag, count, value] : entries) {
        put(tiff, tag, 2);
        put(tiff, 4, 2);
        put(tiff, count, 4);
        put(tiff, value, 4);
    }
    put(tiff, 0, 4);
    return tiff;
}

/// 100 million black pixels.
std::string bombByQt(const PictureFolder& folder, const std::string& name, QImage::Format pixels) {
    const std::string path = folder.pathOf(name);
    QImage large(10000, 10000, pixels);
    large.fill(0);
    constexpr int kQuickly = 85;
    EXPECT_TRUE(large.save(QString::fromStdString(path), nullptr, kQuickly));
    return path;
}

TEST(HostilePicturesTest, CostsSecondsAndMegabytesThatAreBounded) {
    const PictureFolder folder;
    const PictureFiles pictures(folder);
    const ByteVector jpeg = madeJpeg({.width = 640, .height = 480});
    const ByteVector passes = madeJpeg({.width = 640, .height = 480, .progressive = true});
    const ByteVector png = madeByQt("png", 64, 48);
    const ByteVector gif = madeGif(64, 48);
    QImage grey(64, 48, QImage::Format_Grayscale8);
    grey.fill(7);
    const ByteVector tiff = tiffBytes({grey, {}, {}}, {PictureFormat::Tiff, 64, 48, 8, 1});
    QImage indexed(10000, 10000, QImage::Format_Indexed8);
    indexed.fill(0);
    const std::string pipe = folder.pathOf("pipe");
    ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);

    const struct {
        std::string name;
        std::string path;
        int outcome = kRefused;
    } cases[] = {
        {"truncated", folder.keep("a", half(jpeg))},
        {"truncated passes", folder.keep("b", half(passes))},
        {"garbage", folder.keep("c", changed(ByteVector(1 << 20, 0x5A), 0, {0xFF, 0xD8, 0xFF}))},
        {"no bytes", folder.keep("d", {})},
        {"1 x 65535", folder.keep("e", withJpegSize(jpeg, 1, 65535))},
        {"60000 x 60000", folder.keep("f", withJpegSize(jpeg, 60000, 60000))},
        {"10000 x 10000 out of a few bytes", folder.keep("g", withJpegSize(jpeg, 10000, 10000))},
        {"10000 x 10000 in passes", folder.keep("h", withJpegSize(passes, 10000, 10000))},
        {"4 GB claimed", folder.keep("i", changed(png, 16, {0x7F, 0xFF, 0xFF, 0xFF}))},
        {"gif of 10000 x 10000",
         folder.keep("j", changed(changed(gif, 6, {0x10, 0x27, 0x10, 0x27}), 38, {0x10, 0x27, 0x10, 0x27}))},
        {"tiff of 10000 x 10000", folder.keep("k", withTiffNumber(withTiffNumber(tiff, 0, 0, 10000), 1, 1, 10000))},
        {"a folder", folder.pathOf("")},
        {"a named pipe", pipe},
        {"gone", folder.pathOf("gone")},
        {"gif that claims 60000 x 60000", folder.keep("l", changed(gif, 6, {0x60, 0xEA, 0x60, 0xEA}))},
        {"tiff that claims 60000 x 60000",
         folder.keep("m", withTiffNumber(withTiffNumber(tiff, 0, 0, 60000), 1, 1, 60000))},
        // Pictures, if dull ones: they are read, and the bound on pixels bounds their cost.
        {"png of 100 million pixels", bombByQt(folder, "bits.png", QImage::Format_Mono), kRead},
        {"the same in colours", bombByQt(folder, "colours.png", QImage::Format_RGB32), kRead},
        {"gif of 100 million pixels", folder.keep("o", gifBytes({indexed, {0xFF000000U, 0xFFFFFFFFU}, {}})), kRead},
        {"tiff of 100 million pixels", folder.keep("p", tiffBomb(1, false)), kRead},
        {"the same in tiles", folder.keep("q", tiffBomb(1, true)), kRead},
        {"the same in three channels", folder.keep("r", tiffBomb(3, false)), kRead},
        {"the same turned", folder.keep("s", tiffBomb(1, false, 6)), kRead},
    };
    for (const auto& one : cases) {
        const Cost cost = costOf(pictures, one.path);
        std::printf("%-34s %6.3f s %4.0f MB\n", one.name.c_str(), cost.seconds, cost.megabytes);
        EXPECT_EQ(cost.outcome, one.outcome) << one.name;
        EXPECT_LT(cost.seconds, kSeconds * kSlower) << one.name;
        EXPECT_LT(cost.megabytes, kMegabytes * kLarger) << one.name;
    }
}

/// Someone else shortens or removes the file between the header and the picture.
TEST(HostilePicturesTest, AFileThatVanishesIsAFailure) {
    const PictureFolder folder;
    const PictureFiles pictures(folder);
    const std::string path = folder.keep("photo.jpg", madeJpeg({.width = 640, .height = 480}));
    EXPECT_EQ(pictures.info(path).width, 640);
    std::filesystem::resize_file(path, 1000);
    EXPECT_GT(failureOf([&] { (void)pictures.load(path); }), 0);
    std::filesystem::remove(path);
    EXPECT_EQ(failureOf([&] { (void)pictures.load(path); }), static_cast<int>(Failure::FileNotFound));
}

TEST(TiffFileTest, IsTurnedAsItAsks) {
    const PictureFolder folder;
    const PictureFiles pictures(folder);
    const ByteVector png = madeByQt("png", 64, 48);
    const QImage image = QImage::fromData(png.data(), static_cast<int>(png.size()));
    // The one strip needs no word on its rows: what says them becomes the orientation.
    const ByteVector plain = tiffBytes({image, {}, {}}, {PictureFormat::Tiff, 64, 48, 24, 3});
    for (const std::uint8_t code : std::to_array<std::uint8_t>({1, 2, 3, 4, 5, 6, 7, 8})) {
        SCOPED_TRACE(code);
        const auto turned = pictures.load(folder.keep("a.tif", withTiffNumber(plain, 0x16, 0x12, code)));
        const auto expected = pictures.load(folder.keep("a.jpg", madeJpeg({.orientation = code})));
        ASSERT_EQ(turned->width(), expected->width());
        ASSERT_EQ(turned->height(), expected->height());
        EXPECT_EQ(quarters(turned->scaled(24, 24)), quarters(expected->scaled(24, 24)));
    }
}

TEST(TiffFileTest, KeepsAllBitsOfADeepSample) {
    const PictureFolder folder;
    const PictureFiles pictures(folder);
    for (const auto& [format, channels] :
         {std::pair{QImage::Format_RGBX64, 3}, std::pair{QImage::Format_Grayscale16, 1}}) {
        QImage image(40, 20, format);
        image.fill(QColor::fromRgba64(0x1234, 0x1234, 0x1234));
        const PictureHeader header{PictureFormat::Tiff, 40, 20, 16 * channels, channels};
        const ByteVector bytes = tiffBytes({image, {}, {}}, header);
        const std::string path = folder.keep("deep.tif", bytes);
        pictures.load(path)->save(folder.pathOf("again.tif"), static_cast<std::int32_t>(PictureFormat::Tiff),
                                  header.bits, 2);
        EXPECT_EQ(readFile(folder.pathOf("again.tif")), std::string(bytes.begin(), bytes.end())) << channels;
    }
}

TEST(TiffFileTest, RefusesToWriteWhatItCanNotKeep) {
    const PictureFolder folder;
    const PictureFiles pictures(folder);
    QImage image(40, 20, QImage::Format_RGBA64);
    image.fill(QColor::fromRgba64(0x1234, 0x1234, 0x1234, 0x8000));
    const auto picture =
        pictures.load(folder.keep("deep.tif", tiffBytes({image, {}, {}}, {PictureFormat::Tiff, 40, 20, 64, 4})));
    EXPECT_EQ(failureOf([&] { picture->save(folder.pathOf("again.tif"), 5, 64, 2); }),
              static_cast<int>(PictureFailure::NotWritable));
}

}  // namespace
}  // namespace orv::test
