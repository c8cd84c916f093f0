#pragma once

#include <string>

#include "platform/controls/control.h"

namespace orv {

/// Checks how a customer reaches the office: on foot from a station, by bus or by car. Each field is passed with its
/// control, so that any page with these fields can use the check. A field that contains a single blank is filled.
///
/// Empties the codes for "no line" and "no station". Only a failing rule sets `focus` and `message`. On false the pair
/// holds a run-time failure.
[[nodiscard]] bool PF_CheckTransport(std::string& RAILROAD_CODE, Control& btn_SelectRail, std::string& STATION_CODE,
                                     const std::string& WALK_MINUTES, Control& txt_Walk_Minutes,
                                     const std::string& BUS_MINUTES, Control& txt_Bus_Minutes,
                                     const std::string& BUS_ROUTE, Control& txt_Bus_Route, const std::string& BUSSTOP,
                                     Control& txt_Busstop, const std::string& TEIHO_MINUTES, Control& txt_Thiho_Minutes,
                                     Control*& focus, std::string& message, const std::string& CAR_TARGET,
                                     Control& txt_Car_Target, const std::string& CAR_MINUTES, Control& txt_Car_Minutes,
                                     const std::string& CAR_DISTANCE, Control& txt_Car_Distance);

}  // namespace orv
