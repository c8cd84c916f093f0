#include "images/thumbnail.h"

#include "support/fixture.h"

namespace orv {
namespace {

class Thumbnail : public SystemTest {
protected:
    Thumbnail() { writeFile(files.nativePath(kFile), "a picture"); }
    static constexpr const char* kFile = "C:\\ORV\\PHOTO\\a.jpg";
    ImageControl& image = page<frm_CompInp2>().pic_PhotoFile[0];
};

TEST_F(Thumbnail, KeepsThePicturesProportions) {
    struct Case {
        int width, height;
        Box box;
    };
    for (const Case& c : {
             Case{640, 480, {0, 0, 121, 91}},
             Case{480, 640, {0, 0, 75, 100}},
             Case{121, 100, {0, 0, 121, 100}},
             Case{1000, 10, {0, 0, 121, 1}},
             Case{10, 1000, {0, 0, 1, 100}},
             Case{1, 1, {0, 0, 100, 100}},
         }) {
        pictures.script.unwritten.width = c.width;
        pictures.script.unwritten.height = c.height;
        EXPECT_TRUE(PF_Thumbnail(image, kFile));
        EXPECT_EQ(image.dstRect(), c.box)
            << c.width << "x" << c.height << ": " << image.dstRect().width << "x" << image.dstRect().height;
        EXPECT_EQ(image.dstClipRect(), c.box);
        EXPECT_EQ(image.width(), 121);
        EXPECT_EQ(image.height(), 100);
        EXPECT_TRUE(image.visible());
    }
}

}  // namespace
}  // namespace orv
