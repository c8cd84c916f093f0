#pragma once

#include <filesystem>
#include <mutex>
#include <optional>
#include <string>

#include "desk_answer.h"

namespace orv {

/// Takes companies and numbers the new ones. A number is on the disk before it is told, so none is given twice,
/// whatever happens to the server; one that was given and not heard is lost.
class CompanyDesk {
public:
    /// Companies are kept in `folder`/companies, the number given last in `folder`/last_number. Raises
    /// std::runtime_error when that file holds something else, since a guess could repeat a number.
    explicit CompanyDesk(const std::filesystem::path& folder);

    /// `document`: the three rows as JSON. The answer is {"id":"000005001"}: a new number where USER_ID is the marker
    /// "---------", else the company's own. 400 for what is no such document. `idLength`: cuts or pads the id told.
    DeskAnswer registerCompany(const std::string& document, std::optional<std::size_t> idLength);

private:
    std::string takeNumber();

    std::filesystem::path companies_;
    std::filesystem::path lastNumber_;
    std::mutex guard_;
};

}  // namespace orv
