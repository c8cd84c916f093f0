#pragma once

#include <filesystem>
#include <string>

#include "desk_answer.h"

namespace orv {

/// Keeps the photos that the agencies send, one file a name; a photo of the same name takes its place.
class PhotoDesk {
public:
    explicit PhotoDesk(std::filesystem::path folder);

    /// `authorization`: the header's value. 401 without the agreed credentials, 400 for what is no plain file name, 201
    /// for a new photo, 204 for a replaced one.
    DeskAnswer put(const std::string& name, const std::string& authorization, const std::string& bytes) const;

private:
    std::filesystem::path folder_;
};

}  // namespace orv
