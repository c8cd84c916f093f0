#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace orv {

/// The text of a registry file, taken apart into its lines and put together again. Every line that is not asked to
/// change stays to the byte. Names are found without regard to ASCII case.
class RegistryText {
public:
    explicit RegistryText(std::string_view text);

    /// A key is there when it, or one below it, has a section.
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
    /// The line that holds the value, or the line before which it belongs.
    Place findPlace(std::string_view key, std::string_view name) const;

    std::vector<std::string> lines_;
};

}  // namespace orv
