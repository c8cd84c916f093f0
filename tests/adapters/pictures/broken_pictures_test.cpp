#include <gtest/gtest.h>
#include <sys/stat.h>

#include <map>

#include "adapters/pictures/made_pictures.h"
#include "adapters/pictures/picture_failure.h"
#include "adapters/pictures/picture_files.h"
#include "support/failure_of.h"

namespace orv::test {
namespace {

constexpr int kNone = 0;

constexpr int number(PictureFailure failure) { return static_cast<int>(failure); }
constexpr int number(Failure failure) { return static_cast<int>(failure); }

ByteVector startOf(const ByteVector& bytes, std::size_t length) {
    return {bytes.begin(), bytes.begin() + static_cast<std::ptrdiff_t>(length)};
}

ByteVector changed(ByteVector bytes, std::size_t at, const ByteVector& to) {
    std::ranges::copy(to, bytes.begin() + static_cast<std::ptrdiff_t>(at));
    return bytes;
}

class BrokenPicturesTest : public testing::Test {
protected:
    int loadOf(const std::string& path) const {
        return failureOf([&] { (void)pictures_.load(path); });
    }
    int loadOf(const ByteVector& bytes) const { return loadOf(folder_.keep("broken", bytes)); }

    PictureFolder folder_;
    PictureFiles pictures_{folder_};
};

TEST_F(BrokenPicturesTest, FailsWhereverAFileIsCutShort) {
    const struct {
        std::string name;
        ByteVector bytes;
        /// Bytes at the end that hold nothing of the picture.
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
        ASSERT_EQ(loadOf(one.bytes), kNone) << one.name;
        const std::size_t last = one.bytes.size() - one.tail - 1;
        for (const std::size_t length :
             {std::size_t{8}, std::size_t{31}, std::size_t{70}, last / 4, last / 2, last * 9 / 10, last - 1, last}) {
            EXPECT_NE(loadOf(startOf(one.bytes, length)), kNone) << one.name << " cut at " << length;
        }
    }
}

TEST_F(BrokenPicturesTest, NamesWhatIsWrong) {
    const ByteVector jpeg = madeJpeg({});
    const ByteVector passes = madeJpeg({.stored = JCS_RGB, .progressive = true});
    const ByteVector png = madeByQt("png", 64, 48);
    const ByteVector bmp = madeByQt("bmp", 64, 48);
    const ByteVector gif = madeGif(64, 48);
    const std::size_t precision = frameHeader(jpeg) + 4;
    const struct {
        std::string name;
        ByteVector bytes;
        PictureFailure failure;
    } cases[] = {
        {"empty", {}, PictureFailure::Empty},
        {"text", {'n', 'o', ' ', 'p', 'i', 'c', 't', 'u', 'r', 'e'}, PictureFailure::UnknownFormat},
        {"12 bits", changed(jpeg, precision, {12}), PictureFailure::UnsupportedKind},
        {"taller than it is", withJpegSize(jpeg, 64, 1000), PictureFailure::Damaged},
        {"just too many", withJpegSize(jpeg, 10000, 10001), PictureFailure::TooManyPixels},
        {"passes over 96 million pixels", withJpegSize(passes, 12000, 8000), PictureFailure::NeedsTooMuchMemory},
        {"png of 4 GB", changed(png, 16, {0x7F, 0xFF, 0xFF, 0xFF, 0, 0, 0, 1}), PictureFailure::TooManyPixels},
        {"png with a wrong sum", changed(png, png.size() / 2, {0, 0, 0, 0}), PictureFailure::Damaged},
        {"png of deep colours", changed(png, 16, {0, 0, 0x27, 0x10, 0, 0, 0x27, 0x10, 16}),
         PictureFailure::NeedsTooMuchMemory},
        {"bmp of 4 GB", changed(bmp, 18, {0xFF, 0xFF, 0xFF, 0x7F}), PictureFailure::TooManyPixels},
        {"gif of 65535 x 65535", changed(gif, 6, {0xFF, 0xFF, 0xFF, 0xFF}), PictureFailure::TooManyPixels},
        {"gif whose frame holds too little", changed(gif, 38, {65, 0, 49, 0}), PictureFailure::Damaged},
        {"gif with a code beyond its table", changed(gif, 46, {0xF0}), PictureFailure::Damaged},
    };
    for (const auto& one : cases) {
        EXPECT_EQ(loadOf(one.bytes), number(one.failure)) << one.name;
    }
}

TEST_F(BrokenPicturesTest, NeverWaitsForWhatIsNoFile) {
    const std::string pipe = folder_.pathOf("pipe.jpg");
    ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
    const std::string folder = folder_.pathOf("folder.jpg");
    ASSERT_TRUE(std::filesystem::create_directory(folder));
    const std::string huge = folder_.keep("huge.jpg", madeJpeg({}));
    std::filesystem::resize_file(huge, 500'000'001);
    for (const auto& [path, failure] : std::map<std::string, int>{{pipe, number(PictureFailure::NotAFile)},
                                                                  {folder, number(PictureFailure::NotAFile)},
                                                                  {huge, number(PictureFailure::FileTooLarge)},
                                                                  {pipe + "/beyond.jpg", number(Failure::FileNotFound)},
                                                                  {"", number(Failure::FileNotFound)}}) {
        EXPECT_EQ(failureOf([&] { (void)pictures_.info(path); }), failure) << path;
        EXPECT_EQ(loadOf(path), failure) << path;
    }
}

/// Each pass walks over the whole picture, and a few bytes are enough to ask for one.
TEST_F(BrokenPicturesTest, StopsAtPassesWithoutEnd) {
    ByteVector jpeg = madeJpeg({.width = 640, .height = 480, .progressive = true});
    const ByteVector scanMark{0xFF, 0xDA};
    const auto lastScan = std::find_end(jpeg.begin(), jpeg.end(), scanMark.begin(), scanMark.end()) - jpeg.begin();
    const ByteVector scan(jpeg.begin() + lastScan, jpeg.end() - 2);
    for (int i = 0; i < 7000; ++i) {
        jpeg.insert(jpeg.end() - 2, scan.begin(), scan.end());
    }
    EXPECT_EQ(loadOf(jpeg), number(PictureFailure::NeedsTooMuchMemory));
}

}  // namespace
}  // namespace orv::test
