#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace orv {

/// The text of a registry file as lines. Lines that are not changed keep every byte. Names are found without regard to
/// ASCII case.
class RegistryText {
public:
    explicit RegistryText(std::string_view text);

    /// True if the key, or one below it, has a section.
    bool hasKey(std::string_view key) const;
    void addKey(std::string_view key);
    std::optional<std::string> findValue(std::string_view key, std::string_view name) const;
    void setValue(std::string_view key, std::string_view name, std::string_view value);
    std::string text() const;

private:
    bool hasSection(std::string_view key) const;

    struct Place {
        std::size_t line;
        bool found;
    };
    /// Returns the line of the value, or the line before which a new one belongs.
    Place findPlace(std::string_view key, std::string_view name) const;

    std::vector<std::string> lines_;
};

}  // namespace orv
