#include "jet_value.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstring>
#include <limits>
#include <optional>
#include <string_view>

#include "platform/utf8.h"

namespace orv {
namespace {

constexpr char32_t kReplacement = 0xFFFD;
constexpr char32_t kMiddleDot = 0x30FB;  // the code page's result for invalid bytes
constexpr std::string_view kCompressed = "\xFF\xFE";
constexpr double kSmallest = std::numeric_limits<std::int32_t>::min();
constexpr double kLargest = std::numeric_limits<std::int32_t>::max();

bool isText(JetType type) { return type == JetType::Text || type == JetType::Memo; }

template <typename Number>
std::optional<double> readNumber(const std::string& bytes) {
    Number number{};
    if (bytes.size() != sizeof number) {
        return std::nullopt;
    }
    std::memcpy(&number, bytes.data(), sizeof number);
    return static_cast<double>(number);
}

std::optional<double> decodeNumber(const std::string& bytes, JetType type) {
    switch (type) {
        case JetType::Flag:
        case JetType::Byte:
            return readNumber<std::uint8_t>(bytes);
        case JetType::Int:
            return readNumber<std::int16_t>(bytes);
        case JetType::Long:
            return readNumber<std::int32_t>(bytes);
        case JetType::Double:
            return readNumber<double>(bytes);
        default:
            return std::nullopt;
    }
}

std::optional<double> numberWritten(const std::string& digits) {
    std::int64_t number = 0;
    const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), number);
    const bool isWhole = error == std::errc() && end == digits.data() + digits.size();
    return isWhole ? std::optional(static_cast<double>(number)) : std::nullopt;
}

/// Texts can store each Latin character as one byte; a zero byte switches to two bytes and back.
std::string expanded(std::string_view bytes) {
    if (!bytes.starts_with(kCompressed)) {
        return std::string(bytes);
    }
    std::string units;
    bool isNarrow = true;
    for (std::size_t at = kCompressed.size(); at < bytes.size();) {
        if (bytes[at] == '\0') {
            isNarrow = !isNarrow;
            ++at;
        } else if (isNarrow) {
            units.append({bytes[at++], '\0'});
        } else {
            units.append(bytes.substr(at, 2));
            at += 2;
        }
    }
    return units;
}

/// Returns two bytes as one unit. 0 after the end.
char32_t unitAt(std::string_view bytes, std::size_t at) {
    const std::string_view unit = bytes.substr(std::min(at, bytes.size()), 2);
    const auto byte = [unit](std::size_t i) -> char32_t { return static_cast<unsigned char>(unit[i]); };
    return unit.size() == 2 ? byte(0) + (byte(1) << 8U) : 0;
}

constexpr bool isHighHalf(char32_t unit) { return unit >= 0xD800 && unit < 0xDC00; }
constexpr bool isLowHalf(char32_t unit) { return unit >= 0xDC00 && unit < 0xE000; }

/// Replaces a half of a pair that has no other half.
std::u32string fromUtf16(std::string_view bytes) {
    std::u32string characters;
    for (std::size_t at = 0; at < bytes.size(); at += 2) {
        const char32_t unit = unitAt(bytes, at);
        const char32_t next = unitAt(bytes, at + 2);
        if (isHighHalf(unit) && isLowHalf(next)) {
            characters += 0x10000 + ((unit - 0xD800) << 10U) + (next - 0xDC00);
            at += 2;
        } else {
            characters += isHighHalf(unit) || isLowHalf(unit) ? kReplacement : unit;
        }
    }
    return characters;
}

ConvertedValue refused(std::string why) { return {.value = {}, .refused = std::move(why), .noted = {}}; }

}  // namespace

ConvertedValue JetValues::convert(const JetCell& cell, JetType type, const OfficeColumn& column) const {
    if (cell.state == JetCell::State::Unread) {
        return column.isRequired ? refused("can't be read")
                                 : ConvertedValue{.value = {}, .refused = {}, .noted = "can't be read: left empty"};
    }
    if (cell.state == JetCell::State::Null) {
        return {};
    }
    if (column.kind == ColumnKind::Text) {
        return text(cell, type, column);
    }
    ConvertedValue converted = number(cell, type);
    if (converted.refused.empty() && column.kind == ColumnKind::Flag) {
        converted.value = converted.value != Value(0);
    }
    return converted;
}

JetText JetValues::decodeText(const std::string& bytes) const {
    std::u32string characters = version_ == 3 ? toCharacters(codePage_.decode(bytes)) : fromUtf16(expanded(bytes));
    std::ranges::replace(characters, U'\0', kReplacement);  // not possible in any store
    JetText text{.text = toUtf8(characters), .isWhole = characters.find(kReplacement) == std::u32string::npos};
    if (version_ == 3 && characters.find(kMiddleDot) != std::u32string::npos) {
        text.isWhole = codePage_.encode(text.text) == bytes;
    }
    return text;
}

ConvertedValue JetValues::text(const JetCell& cell, JetType type, const OfficeColumn& column) const {
    if (!isText(type)) {
        const std::optional<double> number = type == JetType::Double ? std::nullopt : decodeNumber(cell.bytes, type);
        return number ? ConvertedValue{.value = std::to_string(static_cast<std::int64_t>(*number)),
                                       .refused = {},
                                       .noted = {}}
                      : refused("has a type other than text");
    }
    const JetText whole = decodeText(cell.bytes);
    ConvertedValue converted{.value = whole.text, .refused = {}, .noted = {}};
    if (!whole.isWhole) {
        converted.noted = "contains an invalid character; imported with a replacement";
    } else if (column.longest > 0 && codePage_.encode(whole.text).size() > column.longest) {
        converted.noted =
            "is longer than the " + std::to_string(column.longest) + " bytes of its field; imported in full";
    }
    return converted;
}

ConvertedValue JetValues::number(const JetCell& cell, JetType type) const {
    const std::optional<double> number =
        isText(type) ? numberWritten(decodeText(cell.bytes).text) : decodeNumber(cell.bytes, type);
    if (!number || *number != std::floor(*number)) {
        return refused("is not an integer");
    }
    if (*number < kSmallest || *number > kLargest) {
        return refused("is out of range");
    }
    return {.value = static_cast<std::int64_t>(*number), .refused = {}, .noted = {}};
}

}  // namespace orv
