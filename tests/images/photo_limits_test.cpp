#include <algorithm>
#include <cstdlib>

#include "adapters/pictures/picture_files.h"
#include "images/fitting_case.h"
#include "images/quality_search.h"

namespace orv {
namespace {

constexpr std::size_t kCount = kSmallestFile + 1;

/// The search over the real encoder, against trying every factor. ORV_LIMIT_STEPS=1000: so many limits, and the photos
/// at the size that they are mostly brought to.
class PhotoLimits : public FittingTest, public testing::WithParamInterface<const char*> {
protected:
    PhotoLimits() {
        services().pictures = &real;
        const int side = wholeWalk() ? 640 : 160;
        image.load(std::string("/usr/share/backgrounds/mate/nature/") + GetParam() + ".jpg", {side, side});
        image.size(side, side * 3 / 4);
    }
    static const char* wholeWalk() { return std::getenv("ORV_LIMIT_STEPS"); }
    static int steps() { return wholeWalk() ? std::stoi(wholeWalk()) : 20; }

    std::int32_t sizeAt(int factor) {
        image.save(kWork, kJpeg, 24, factor);
        image.getFileInfo(kWork);
        return image.infoSizeDisk();
    }
    /// At its place each factor's; those of 0 and 1 stay 0.
    std::vector<std::int32_t> everySize() {
        std::vector<std::int32_t> sizes(kCount);
        for (int factor = kBestQuality; factor <= kSmallestFile; ++factor) {
            sizes[static_cast<std::size_t>(factor)] = sizeAt(factor);
        }
        return sizes;
    }
    /// What the search says, from the file that the sizing leaves.
    std::string searched(std::int32_t limit) {
        sizeAt(kBestQuality);
        limits("640", "480", std::to_string(limit));
        windows.repaints = 0;
        gImgQualityText = "255/255";
        bool changed = false;
        return PF_ChangeQFactor(image, changed) ? gImgQualityText : gErrCode;
    }

    static constexpr std::int32_t kJpeg = 1;
    PictureFiles real{files};
};

/// The encoder refuses the factor 1.
TEST_P(PhotoLimits, TheSearchFindsWhatTryingEveryFactorFinds) {
    const auto sizes = everySize();
    EXPECT_TRUE(std::is_sorted(sizes.rbegin(), sizes.rend() - kBestQuality)) << "a file grows as the factor rises";
    const std::int32_t whole = sizes[kBestQuality];
    for (int step = 0; step < steps(); ++step) {
        const auto limit = static_cast<std::int32_t>(std::int64_t{whole} * step / steps());
        const auto best = std::find_if(sizes.begin() + kBestQuality, sizes.end(),
                                       [limit](std::int32_t size) { return size <= limit; });
        if (best == sizes.end()) {
            ASSERT_EQ(searched(limit), "IMGERR:01") << limit;
            continue;
        }
        ASSERT_EQ(searched(limit), std::to_string(best - sizes.begin()) + "/ 255") << limit;
        ASSERT_EQ(files.sizeOf(kWork), static_cast<std::uint64_t>(*best)) << limit;
        ASSERT_EQ(windows.repaints, 8) << "one after each save of the search but the first and the last";
    }
    EXPECT_EQ(searched(whole), "255/255");
}

INSTANTIATE_TEST_SUITE_P(Photos, PhotoLimits,
                         testing::Values("Aqua", "Dune", "Garden", "LadyBird", "RainDrops", "Storm", "TwoWings", "Wood",
                                         "YellowFlower"),
                         [](const auto& photo) { return std::string(photo.param); });

class QualitySearch : public FittingTest {
protected:
    /// The factors that are tried where all from `first` on fit, the last of them chosen.
    std::vector<int> tried(int first) {
        image.load(source);
        pictures.script.written[kWork] = {.sizeDisk = 1 << 20, .width = 640, .height = 480, .bits = 24, .format = 7};
        pictures.script.sizeAt = [first](int factor) { return factor >= first ? 5 : 9; };
        pictures.script.factors.clear();
        limits("640", "480", "5");
        bool changed = false;
        EXPECT_TRUE(PF_ChangeQFactor(image, changed) && changed);
        EXPECT_EQ(gImgQualityText, std::to_string(pictures.script.factors.back()) + "/ 255");
        EXPECT_EQ(pictures.script.written[kWork].format, 7);
        return pictures.script.factors;
    }
};

TEST_F(QualitySearch, TriesByHalvesAndNeverTheFactor1) {
    EXPECT_EQ(tried(86), (std::vector<int>{255, 127, 63, 95, 79, 87, 83, 85, 86, 86}));
    EXPECT_EQ(tried(2), (std::vector<int>{255, 127, 63, 31, 15, 7, 3, 2, 2, 2}));
    for (int first = kBestQuality; first <= kSmallestFile; ++first) {
        EXPECT_EQ(tried(first).back(), first);
        EXPECT_EQ(pictures.script.factors.size(), 10U) << first;
    }
}

}  // namespace
}  // namespace orv
