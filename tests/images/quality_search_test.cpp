#include "images/quality_search.h"

#include "images/fitting_case.h"

namespace orv {
namespace {

class QualitySearch : public FittingTest {
protected:
    QualitySearch() {
        image.load(source);
        pictures.script.written[kWork] = {.sizeDisk = 1 << 20, .width = 640, .height = 480, .bits = 24, .format = 7};
    }
    std::string search(const std::string& limit, bool& changed) {
        limits("640", "480", limit);
        pictures.script.factors.clear();
        pictures.script.written[kWork].sizeDisk = 1 << 20;
        gImgQualityText = "255/255";
        changed = false;
        return PF_ChangeQFactor(image, changed) ? gImgQualityText : pair();
    }
};

TEST_F(QualitySearch, FindsTheSmallestFactorThatFitsForEveryLimit) {
    // Falls everywhere but between 100 and 110.
    pictures.script.sizeAt = [](int factor) { return factor >= 100 && factor <= 110 ? 1450 : (256 - factor) * 10; };
    pictures.script.write = [](const std::string&, const std::string&) {};
    for (int limit = 10; limit < 2600; limit += limit % 10 == 0 ? 9 : 1) {
        int best = kBestQuality;
        while (pictures.script.sizeAt(best) > limit) {
            ++best;
        }
        bool changed = false;
        ASSERT_EQ(search(std::to_string(limit), changed), std::to_string(best) + "/ 255") << limit;
        EXPECT_TRUE(changed);
        const std::vector<int>& tried = pictures.script.factors;
        ASSERT_EQ(tried.size(), 10U) << limit;
        EXPECT_EQ(tried.front(), kSmallestFile);
        EXPECT_EQ(tried.back(), best);
        EXPECT_EQ(std::count(tried.begin(), tried.end(), 1), 0);
    }
}

TEST_F(QualitySearch, TriesByHalves) {
    pictures.script.sizeAt = [](int factor) { return factor >= 86 ? 1 : 9; };
    bool changed = false;
    EXPECT_EQ(search("5", changed), "86/ 255");
    EXPECT_EQ(pictures.script.factors, (std::vector<int>{255, 127, 63, 95, 79, 87, 83, 85, 86, 86}));
    EXPECT_EQ(windows.repaints, 8);
    EXPECT_EQ(pictures.script.written[kWork].format, 7);
    EXPECT_EQ(search("9", changed), "2/ 255") << "the factor 1 is never tried";
    EXPECT_EQ(pictures.script.factors, (std::vector<int>{255, 127, 63, 31, 15, 7, 3, 2, 2, 2}));
}

}  // namespace
}  // namespace orv
