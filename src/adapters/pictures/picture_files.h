#pragma once

#include "platform/machine/file_system.h"
#include "platform/machine/picture_library.h"

namespace orv {

/// Reads and writes JPEG, PNG, BMP, GIF and TIFF files.
class PictureFiles : public PictureLibrary {
public:
    explicit PictureFiles(FileSystem& files) : files_(files) {}

    PictureInfo info(const std::string& path) const override;
    std::unique_ptr<Picture> load(const std::string& path, PictureSize within = {}) const override;

private:
    FileSystem& files_;
};

}  // namespace orv
