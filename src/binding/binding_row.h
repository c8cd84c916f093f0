#pragma once

#include <algorithm>
#include <array>
#include <concepts>
#include <cstdint>
#include <span>

#include "core/record/company_record.h"
#include "logging/trap.h"
#include "pages/forms/page_set.h"

namespace orv {

/// How the content of a control is converted for the record.
enum class ReadAs : std::uint8_t { Normalised, NullToStr, AsShown };

/// A field and the control that shows it.
struct BindingRow {
    TextField field;
    ControlRef control;
    ReadAs readAs = ReadAs::Normalised;
};

/// One element of an order: the row of a field, or a function for fields that need special handling.
struct Step {
    /// The field of the row, or those that the function shows or reads.
    std::array<TextField, 2> fields{};
    /// Null for a row.
    bool (*named)() = nullptr;
};

constexpr Step row(TextField field) { return {{field}, nullptr}; }

/// A function that returns false on failure, or nothing if it fails only by throwing. A function without fields changes
/// only the state of the page.
template <auto Function, std::same_as<TextField>... Fields>
constexpr Step step(Fields... fields) {
    return {{fields...}, [] { return succeeds(Function); }};
}

/// Returns the row of the field. Compilation fails if an order names a field without a row.
constexpr const BindingRow& findRow(std::span<const BindingRow> rows, TextField field) {
    for (const BindingRow& candidate : rows) {
        if (candidate.field == field) {
            return candidate;
        }
    }
    throw "no such row";
}

/// The binding of a page: its rows, the order of filling the page and the order of reading it. Compilation fails unless
/// both orders handle each field of a row, and each field of a function, exactly once.
class PageBinding {
public:
    consteval PageBinding(std::span<const BindingRow> rows, std::span<const Step> toPage,
                          std::span<const Step> toRecord)
        : rows_(rows), toPage_(toPage), toRecord_(toRecord) {
        for (const BindingRow& bound : rows) {
            requireOnce(bound.field);
        }
        requireFields(toPage);
        requireFields(toRecord);
    }

    constexpr std::span<const BindingRow> rows() const { return rows_; }
    constexpr std::span<const Step> toPage() const { return toPage_; }
    constexpr std::span<const Step> toRecord() const { return toRecord_; }

private:
    static constexpr bool isHandledOnce(std::span<const Step> order, TextField field) {
        return std::ranges::count_if(order, [&](const Step& place) {
                   return std::ranges::find(place.fields, field) != place.fields.end();
               }) == 1;
    }

    constexpr void requireOnce(TextField field) const {
        if (!isHandledOnce(toPage_, field) || !isHandledOnce(toRecord_, field)) {
            throw "a field that one of the orders omits or repeats";
        }
    }

    constexpr void requireFields(std::span<const Step> order) const {
        for (const Step& place : order) {
            if (place.named == nullptr) {
                static_cast<void>(findRow(rows_, place.fields[0]));
            }
            for (const TextField field : place.fields) {
                if (field != nullptr) {
                    requireOnce(field);
                }
            }
        }
    }

    std::span<const BindingRow> rows_;
    std::span<const Step> toPage_;
    std::span<const Step> toRecord_;
};

}  // namespace orv
