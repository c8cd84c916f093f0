#pragma once

#include "support/fixture.h"

namespace orv {

/// A picture in a file outside the office's drives, as clerks keep them, and page 2's control for fitting.
class FittingTest : public SystemTest {
protected:
    static constexpr const char* kWork = "C:\\ORV\\TMP\\WorkImg";

    FittingTest() {
        writeFile(source, "a picture");
        gImgSrcFile = source;
        gImgDstFile = kWork;
    }
    /// Sets the data in the picture's header.
    void picture(int width, int height, std::int32_t size = 1000) {
        pictures.script.unwritten = {.sizeDisk = size, .width = width, .height = height, .bits = 24, .format = 7};
    }
    void setLimits(const std::string& width, const std::string& height, const std::string& size = "61440") {
        settings.set("IMG", "LONG_W", width);
        settings.set("IMG", "LONG_H", height);
        settings.set("IMG", "MAXSIZE", size);
    }
    bool hasWorkingFile() const { return files.exists(kWork); }
    static std::string pair() { return gErrCode + " " + gErrMsg; }

    TempFolder folder;
    std::string source = folder.file("写真.jpg");
    ImageControl& image = page<frm_CompInp2>().pic_LeadTmp;
};

}  // namespace orv
