#include "validation/rules/page_checks.h"

#include <algorithm>
#include <array>
#include <cstdint>

#include "logging/trap.h"

namespace orv {
namespace {

constexpr std::string_view kNoLine = "409999";
constexpr std::string_view kNoStation = "999";

/// The filled fields, one bit per field.
using Fields = std::uint16_t;

constexpr Fields kLine = 1 << 0;
constexpr Fields kStation = 1 << 1;
constexpr Fields kWalk = 1 << 2;
constexpr Fields kBusMinutes = 1 << 3;
constexpr Fields kBusRoute = 1 << 4;
constexpr Fields kBusStop = 1 << 5;
constexpr Fields kFromStop = 1 << 6;
constexpr Fields kCarTarget = 1 << 7;
constexpr Fields kCarMinutes = 1 << 8;
constexpr Fields kCarDistance = 1 << 9;
constexpr std::size_t kFieldCount = 10;

constexpr Fields kBus = kBusMinutes | kBusRoute | kBusStop | kFromStop;
constexpr Fields kBusFree = kBusRoute | kBusStop | kFromStop;
constexpr Fields kCar = kCarTarget | kCarMinutes | kCarDistance;
constexpr Fields kNoWalkNoBus = kWalk | kBus;
constexpr Fields kNoTarget = kNoWalkNoBus | kCarTarget;

enum class At : std::uint8_t { None, Line, Walk, BusRoute, BusStop, FromStop, CarTarget, CarMinutes, CarDistance };

struct TransportRow {
    /// Requires all of these to be filled.
    Fields filled;
    /// Requires all of these to be empty.
    Fields empty;
    /// Requires at least one of these to be filled, unless 0.
    Fields anyFilled;
    At focus;
    /// If empty, the row passes.
    std::string_view text;

    constexpr bool holds(Fields fields) const {
        return (fields & filled) == filled && (fields & empty) == 0 && (anyFilled == 0 || (fields & anyFilled) != 0);
    }
};

// The first matching row decides. The focus never goes to the minutes by bus, but to the minutes from the stop instead.
// clang-format off
constexpr auto kRows = std::to_array<TransportRow>({
    {kLine,                       kStation,                    0,        At::Line,        "沿線・駅どちらかが選択されておりません。"},
    {kStation,                    kLine,                       0,        At::Line,        "沿線・駅どちらかが選択されておりません。"},
    {0,                           kLine | kStation,            0,        At::Line,        "沿線・駅が選択されておりません。"},
    {kWalk,                       kBus | kCar,                 0,        At::None,        ""},
    {kWalk,                       0,                           0,        At::Walk,        "沿線・駅・徒歩 以外のデータが入力されています。"},
    {kBusMinutes,                 kWalk | kBusRoute,           0,        At::BusRoute,    "バス路線名が入力されておりません。"},
    {kBusMinutes,                 kWalk | kBusStop,            0,        At::BusStop,     "バス停名が入力されておりません。"},
    {kBusMinutes,                 kWalk | kFromStop,           0,        At::FromStop,    "停歩が入力されておりません。"},
    {kBusMinutes,                 kWalk | kCar,                0,        At::None,        ""},
    {kBusMinutes,                 kWalk,                       0,        At::FromStop,    "沿線・駅・バス 以外のデータが入力されています。"},
    {0,                           kWalk | kBusMinutes,         kBusFree, At::FromStop,    "バス分数が入力されておりません。"},
    {kCarTarget,                  kNoWalkNoBus,                0,        At::CarTarget,   "沿線・駅が存在する場合は車目標物は必要ありません。"},
    {kCarMinutes | kCarDistance,  kNoTarget,                   0,        At::None,        ""},
    {kCarMinutes,                 kNoTarget | kCarDistance,    0,        At::CarDistance, "車距離が入力されておりません。"},
    {kCarDistance,                kNoTarget | kCarMinutes,     0,        At::CarMinutes,  "車分数が入力されておりません。"},
    {0,                           kNoWalkNoBus | kCar,         0,        At::None,        ""},
});
// clang-format on

constexpr const TransportRow* decidingRow(Fields fields) {
    return std::ranges::find_if(kRows, [&](const TransportRow& row) { return row.holds(fields); });
}

static_assert(
    [] {
        for (Fields fields = 0; fields < 1 << kFieldCount; ++fields) {
            if (decidingRow(fields) == kRows.end()) {
                return false;
            }
        }
        return true;
    }(),
    "a row decides each case");

Fields findFilled(const std::array<const std::string*, kFieldCount>& texts) {
    unsigned fields = 0;
    for (std::size_t i = 0; i < texts.size(); ++i) {
        fields |= texts[i]->empty() ? 0U : 1U << i;
    }
    return static_cast<Fields>(fields);
}

void clearIf(std::string& code, std::string_view none) {
    if (code == none) {
        code.clear();
    }
}

}  // namespace

bool PF_CheckTransport(std::string& RAILROAD_CODE, Control& btn_SelectRail, std::string& STATION_CODE,
                       const std::string& WALK_MINUTES, Control& txt_Walk_Minutes, const std::string& BUS_MINUTES,
                       Control& /*txt_Bus_Minutes*/, const std::string& BUS_ROUTE, Control& txt_Bus_Route,
                       const std::string& BUSSTOP, Control& txt_Busstop, const std::string& TEIHO_MINUTES,
                       Control& txt_Thiho_Minutes, Control*& focus, std::string& message, const std::string& CAR_TARGET,
                       Control& txt_Car_Target, const std::string& CAR_MINUTES, Control& txt_Car_Minutes,
                       const std::string& CAR_DISTANCE, Control& txt_Car_Distance) {
    return trapped("", [&] {
        clearIf(RAILROAD_CODE, kNoLine);
        clearIf(STATION_CODE, kNoStation);
        const TransportRow& row =
            *decidingRow(findFilled({&RAILROAD_CODE, &STATION_CODE, &WALK_MINUTES, &BUS_MINUTES, &BUS_ROUTE, &BUSSTOP,
                                     &TEIHO_MINUTES, &CAR_TARGET, &CAR_MINUTES, &CAR_DISTANCE}));
        if (!row.text.empty()) {
            // In the order of `At`.
            const std::array<Control*, 9> places{nullptr,         &btn_SelectRail,  &txt_Walk_Minutes,
                                                 &txt_Bus_Route,  &txt_Busstop,     &txt_Thiho_Minutes,
                                                 &txt_Car_Target, &txt_Car_Minutes, &txt_Car_Distance};
            focus = places.at(static_cast<std::size_t>(row.focus));
            message = row.text;
        }
        return true;
    });
}

}  // namespace orv
