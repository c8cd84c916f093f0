#include "images/image_fit.h"

#include "images/fitting_case.h"

namespace orv {
namespace {

class ImageFit : public FittingTest {};

TEST_F(ImageFit, TheSideThatIsFurtherOutDecidesAndTheOtherFollows) {
    struct Case {
        int width, height, limitWidth, limitHeight;
        std::string outcome;
    };
    for (const Case& c : std::vector<Case>{
             {640, 480, 640, 480, "copied"},
             {1, 1, 1, 1, "copied"},
             {641, 480, 640, 480, "640x479"},
             {640, 481, 640, 480, "639x480"},
             {1600, 1200, 640, 480, "640x480"},
             {3000, 4000, 640, 480, "360x480"},
             {4000, 1000, 640, 480, "640x160"},
             // A half goes to the even neighbour.
             {200, 101, 100, 100, "100x50"},
             {200, 103, 100, 100, "100x52"},
             {101, 200, 100, 100, "50x100"},
             {103, 200, 100, 100, "52x100"},
             {800, 400, 65534, 32768, "copied"},
             // The result has 16 bits, the product 32.
             {70000, 10, 40000, 480, "6"},
             {70000, 70000, 640, 40000, "640x640"},
             {65535, 65535, 32768, 32767, "32767x32767"},
             {101, 39000, 100, 40000, "6"},
             {65536, 65536, 32768, 32768, "6"},
             {65540, 65538, 32766, 32766, "32766x32765"},
         }) {
        SCOPED_TRACE(std::to_string(c.width) + "x" + std::to_string(c.height) + " to " + c.outcome);
        picture(c.width, c.height);
        limits(std::to_string(c.limitWidth), std::to_string(c.limitHeight));
        pictures.script.written.clear();
        pictures.script.factors.clear();
        clearPair();
        bool changed = false;
        const bool fine = PF_ResizeImePic(image, changed);
        const PictureInfo& made = pictures.script.written[kWork];
        const std::string size = std::to_string(made.width) + "x" + std::to_string(made.height);
        EXPECT_EQ(!fine ? gErrCode : changed ? size : "copied", c.outcome);
        if (fine && changed) {
            EXPECT_EQ(pictures.script.factors, std::vector<int>{2});
            EXPECT_EQ(made.format, 7);
            EXPECT_EQ(made.bits, 24);
        }
    }
}

}  // namespace
}  // namespace orv
