#include "adapters/pictures/picture_files.h"
#include "images/fitting_case.h"
#include "images/image_fit.h"

namespace orv {
namespace {

/// Checks the assumptions of the search on the real encoder. ORV_LIMIT_WHOLE=1 uses the photos at their usual fitted
/// size.
class PhotoLimits : public FittingTest, public testing::WithParamInterface<const char*> {};

TEST_P(PhotoLimits, AFileNeverGrowsAsTheFactorRises) {
    PictureFiles real{files};
    services().pictures = &real;
    const int side = std::getenv("ORV_LIMIT_WHOLE") != nullptr ? 640 : 160;
    const std::string photo = std::string("/usr/share/backgrounds/mate/nature/") + GetParam() + ".jpg";
    image.load(std::filesystem::absolute(photo).string(), {side, side});
    image.size(side, side * 3 / 4);
    std::vector<std::uint64_t> sizes;
    for (int factor = kSmallestQuality; factor >= kBestQuality; --factor) {
        image.save(kWork, 1, 24, factor);
        sizes.push_back(files.fileSize(kWork));
    }
    EXPECT_LT(sizes.front(), sizes.back());
    EXPECT_TRUE(std::ranges::is_sorted(sizes));
}

INSTANTIATE_TEST_SUITE_P(Photos, PhotoLimits,
                         testing::Values("Aqua", "Dune", "Garden", "LadyBird", "RainDrops", "Storm", "TwoWings", "Wood",
                                         "YellowFlower"),
                         [](const auto& photo) { return std::string(photo.param); });

class QualitySearch : public FittingTest {
protected:
    /// Returns the factors tried if all from `first` on fit. The last one is the result.
    std::vector<int> tried(int first) {
        image.load(source);
        pictures.script.written[kWork] = {.sizeDisk = 1 << 20, .width = 640, .height = 480, .bits = 24, .format = 7};
        pictures.script.sizeAt = [first](int factor) { return factor >= first ? 5 : 9; };
        pictures.script.factors.clear();
        limits("640", "480", "5");
        bool changed = false;
        windows.repaints = 0;
        EXPECT_TRUE(PF_ChangeQFactor(image, changed) && changed);
        EXPECT_EQ(windows.repaints, 8) << "one after each save of the search but the first and the last";
        EXPECT_EQ(gImgQualityText, std::to_string(pictures.script.factors.back()) + "/ 255");
        EXPECT_EQ(pictures.script.written[kWork].format, 7);
        return pictures.script.factors;
    }
};

TEST_F(QualitySearch, TriesByHalvesAndNeverTheFactor1) {
    EXPECT_EQ(tried(86), (std::vector<int>{255, 127, 63, 95, 79, 87, 83, 85, 86, 86}));
    EXPECT_EQ(tried(2), (std::vector<int>{255, 127, 63, 31, 15, 7, 3, 2, 2, 2}));
    for (int first = kBestQuality; first <= kSmallestQuality; ++first) {
        EXPECT_EQ(tried(first).back(), first);
        EXPECT_EQ(pictures.script.factors.size(), 10U) << first;
    }
}

}  // namespace
}  // namespace orv
