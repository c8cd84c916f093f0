#pragma once

#include <filesystem>
#include <mutex>
#include <optional>
#include <string>

#include "photo_service.h"

namespace orv {

/// Accepts companies and numbers the new ones. A number is stored on the disk before it is sent, so that none is
/// assigned twice, even if the server crashes. A number that the client did not receive is lost.
class CompanyService {
public:
    /// Keeps companies in `folder`/companies and the last number in `folder`/last_number. Throws std::runtime_error if
    /// that file has other content, because a guess could repeat a number.
    explicit CompanyService(const std::filesystem::path& folder);

    /// `document` contains the three rows as JSON. The answer is {"id":"000005001"}. The id is a new number if USER_ID
    /// is "---------", otherwise the company's own. 400 for an invalid document. `idLength` shortens or pads the id.
    ServiceAnswer registerCompany(const std::string& document, std::optional<std::size_t> idLength);

private:
    std::string assignNumber();

    std::filesystem::path companies_;
    std::filesystem::path lastNumber_;
    std::mutex guard_;
};

}  // namespace orv
