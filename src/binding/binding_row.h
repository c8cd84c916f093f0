#pragma once

#include <algorithm>
#include <array>
#include <cstdint>
#include <span>

#include "core/record/company_record.h"
#include "pages/controls/control_ref.h"

namespace orv {

/// What a control's content goes through on the way to the record.
enum class TakeBack : std::uint8_t { Normalised, NullToStr, AsShown };

/// A field and the control that shows it.
struct BindingRow {
    TextField field;
    ControlRef control;
    TakeBack takeBack = TakeBack::Normalised;
};

/// One place in an order: the row of a field, or a step of its own for what is bound oddly.
struct Step {
    TextField field = nullptr;
    bool (*named)() = nullptr;
};

constexpr Step row(TextField field) { return {field, nullptr}; }
constexpr Step step(bool (*named)()) { return {nullptr, named}; }

/// The row of the field; failure at compile time where an order names a field without one.
constexpr const BindingRow& rowOf(std::span<const BindingRow> rows, TextField field) {
    for (const BindingRow& candidate : rows) {
        if (candidate.field == field) {
            return candidate;
        }
    }
    throw "no such row";
}

/// Whether the order names each row at most once, and nothing but rows.
constexpr bool namesRowsOnce(std::span<const BindingRow> rows, std::span<const Step> order) {
    for (const Step& place : order) {
        if (place.field == nullptr) {
            continue;
        }
        static_cast<void>(rowOf(rows, place.field));
        const auto times =
            std::count_if(order.begin(), order.end(), [&](const Step& other) { return other.field == place.field; });
        if (times != 1) {
            return false;
        }
    }
    return true;
}

/// Whether the order names every row.
constexpr bool namesAllRows(std::span<const BindingRow> rows, std::span<const Step> order) {
    return std::all_of(rows.begin(), rows.end(), [&](const BindingRow& wanted) {
        return std::any_of(order.begin(), order.end(), [&](const Step& place) { return place.field == wanted.field; });
    });
}

/// How a page is bound: its rows, the order in which it is filled, and the order in which it is taken back.
struct PageBinding {
    std::span<const BindingRow> rows;
    std::span<const Step> toPage;
    std::span<const Step> toRecord;
};

}  // namespace orv
