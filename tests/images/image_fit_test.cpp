#include "images/image_fit.h"

#include "images/file_size_text.h"
#include "images/fitting_case.h"
#include "images/thumbnail.h"

namespace orv {
namespace {

class ImageFit : public FittingTest {};

TEST_F(ImageFit, TheSideThatIsFurtherOutDecidesAndTheOtherFollows) {
    struct Case {
        int width, height, limitWidth, limitHeight;
        std::string outcome;
    };
    for (const Case& c :
         {Case{640, 480, 640, 480, "copied"}, Case{641, 480, 640, 480, "640x479"}, Case{640, 481, 640, 480, "639x480"},
          Case{1600, 1200, 640, 480, "640x480"}, Case{3000, 4000, 640, 480, "360x480"},
          // A half goes to the even neighbour.
          Case{200, 101, 100, 100, "100x50"}, Case{200, 103, 100, 100, "100x52"},
          Case{800, 400, 65534, 32768, "copied"},
          // The result has 16 bits, the product 32.
          Case{70000, 10, 40000, 480, "6"}, Case{70000, 70000, 640, 40000, "640x640"},
          Case{65535, 65535, 32768, 32767, "32767x32767"}, Case{101, 39000, 100, 40000, "6"},
          Case{65536, 65536, 32768, 32768, "6"}, Case{65540, 65538, 32766, 32766, "32766x32765"}}) {
        SCOPED_TRACE(std::to_string(c.width) + "x" + std::to_string(c.height) + " to " + c.outcome);
        picture(c.width, c.height);
        setLimits(std::to_string(c.limitWidth), std::to_string(c.limitHeight));
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

TEST_F(ImageFit, AThumbnailKeepsThePicturesProportions) {
    ImageControl& slot = page<frm_CompInp2>().pic_PhotoFile[0];
    struct Case {
        int width, height;
        Box box;
    };
    for (const Case& c :
         {Case{640, 480, {0, 0, 121, 91}}, Case{480, 640, {0, 0, 75, 100}}, Case{121, 100, {0, 0, 121, 100}},
          Case{1000, 10, {0, 0, 121, 1}}, Case{10, 1000, {0, 0, 1, 100}}, Case{1, 1, {0, 0, 100, 100}}}) {
        picture(c.width, c.height);
        EXPECT_TRUE(PF_Thumbnail(slot, source));
        EXPECT_EQ(slot.dstRect(), c.box) << c.width << "x" << c.height;
        EXPECT_EQ(slot.dstClipRect(), c.box);
        EXPECT_EQ(slot.width(), 121);
        EXPECT_EQ(slot.height(), 100);
        EXPECT_TRUE(slot.visible());
    }
}

TEST(FileSizeText, IsCutAtTheBordersAndRoundsAHalfUp) {
    struct Case {
        double size;
        const char* text;
    };
    for (const Case& c : {Case{0, "0B"}, Case{1023, "1023B"}, Case{1024, "1.0KB"}, Case{1152, "1.13KB"},
                          Case{1536, "1.5KB"}, Case{1048575, "1024.0KB"}, Case{1048576, "1.0MB"},
                          Case{1073741823, "1024.0MB"}, Case{1073741824, "1.0GB"}, Case{1e15, "931322.57GB"}}) {
        EXPECT_EQ(PF_GetFileSizeString(c.size), c.text);
    }
    EXPECT_EQ(gErrMsg, "");
    EXPECT_EQ(PF_GetFileSizeString(1e300), "-1");
    EXPECT_EQ(gErrMsg, "[ PF_GetFileSizeString ] " + std::string(describe(Failure::Overflow)));
    clearPair();
}

}  // namespace
}  // namespace orv
