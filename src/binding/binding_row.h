#pragma once

#include <algorithm>
#include <array>
#include <cstdint>
#include <span>

#include "core/record/company_record.h"
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
    TextField field = nullptr;
    bool (*named)() = nullptr;
};

constexpr Step row(TextField field) { return {field, nullptr}; }
constexpr Step step(bool (*named)()) { return {nullptr, named}; }

/// Returns the row of the field. Compilation fails if an order names a field without a row.
constexpr const BindingRow& findRow(std::span<const BindingRow> rows, TextField field) {
    for (const BindingRow& candidate : rows) {
        if (candidate.field == field) {
            return candidate;
        }
    }
    throw "no such row";
}

/// True if the order names each row at most once and contains no unknown fields.
constexpr bool namesRowsOnce(std::span<const BindingRow> rows, std::span<const Step> order) {
    for (const Step& place : order) {
        if (place.field == nullptr) {
            continue;
        }
        static_cast<void>(findRow(rows, place.field));
        const auto times =
            std::count_if(order.begin(), order.end(), [&](const Step& other) { return other.field == place.field; });
        if (times != 1) {
            return false;
        }
    }
    return true;
}

/// True if the order names every row.
constexpr bool namesAllRows(std::span<const BindingRow> rows, std::span<const Step> order) {
    return std::all_of(rows.begin(), rows.end(), [&](const BindingRow& wanted) {
        return std::any_of(order.begin(), order.end(), [&](const Step& place) { return place.field == wanted.field; });
    });
}

/// The binding of a page: its rows, the order of filling the page and the order of reading it.
struct PageBinding {
    std::span<const BindingRow> rows;
    std::span<const Step> toPage;
    std::span<const Step> toRecord;
};

}  // namespace orv
