#pragma once

#include <string>

#include "platform/controls/control.h"

namespace orv {

/// How a customer comes to the office: from a line and station on by foot, by bus or by car. Each field stands beside
/// its control, so that any page with the block can ask. A field that holds a single blank is filled.
///
/// The codes for "no line" and "no station" are emptied. A rule that fails shows only in `focus` and `message`, which
/// are left alone otherwise; false means that the pair tells of a run-time failure.
[[nodiscard]] bool PF_CheckTransport(std::string& RAILROAD_CODE, Control& btn_SelectRail, std::string& STATION_CODE,
                                     const std::string& WALK_MINUTES, Control& txt_Walk_Minutes,
                                     const std::string& BUS_MINUTES, Control& txt_Bus_Minutes,
                                     const std::string& BUS_ROUTE, Control& txt_Bus_Route, const std::string& BUSSTOP,
                                     Control& txt_Busstop, const std::string& TEIHO_MINUTES, Control& txt_Thiho_Minutes,
                                     Control*& focus, std::string& message, const std::string& CAR_TARGET,
                                     Control& txt_Car_Target, const std::string& CAR_MINUTES, Control& txt_Car_Minutes,
                                     const std::string& CAR_DISTANCE, Control& txt_Car_Distance);

}  // namespace orv
