#include "images/fitting_case.h"
#include "images/image_fit.h"

namespace orv {
namespace {

class QualitySearch : public FittingTest {
protected:
    /// Returns the factors tried if all from `first` on fit. The last one is the result.
    std::vector<int> tried(int first) {
        image.load(source);
        pictures.script.written[kWork] = {.sizeDisk = 1 << 20, .width = 640, .height = 480, .bits = 24, .format = 7};
        pictures.script.sizeAt = [first](int factor) { return factor >= first ? 5 : 9; };
        pictures.script.factors.clear();
        setLimits("640", "480", "5");
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
