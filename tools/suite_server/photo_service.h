#pragma once

#include <filesystem>
#include <string>

namespace orv {

/// The answer to a request.
struct ServiceAnswer {
    int status = 200;
    std::string body;
};

/// Stores the photos that the agencies send, one file per name. A photo with the same name replaces the old one.
class PhotoService {
public:
    explicit PhotoService(std::filesystem::path folder);

    /// `authorization` is the header's value. 401 for wrong credentials, 400 for anything but a plain file name, 201
    /// for a new photo, 204 for a replaced one.
    ServiceAnswer put(const std::string& name, const std::string& authorization, const std::string& bytes) const;

private:
    std::filesystem::path folder_;
};

}  // namespace orv
