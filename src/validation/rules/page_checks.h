#pragma once

#include <string>

#include "validation/rules/rule.h"

namespace orv {

/// Checks page 0: the company, its address and persons, and the site of the computer. On false `out` holds the message,
/// or the pair holds a run-time failure.
[[nodiscard]] bool PF_CheckFrmCompInp0Data(Refusal& out);

/// Checks page 1: the broker's licence, then the associations and councils. On false `out` holds the message, or the
/// pair holds a run-time failure, such as an expiry date that cannot be read.
[[nodiscard]] bool PF_CheckFrmCompInp1Data(Refusal& out);

/// Checks the second half of page 1: the associations, and whether the council of each one's region is ticked. The
/// operator can accept a missing council.
[[nodiscard]] bool associationsPass(Refusal& out);

/// Checks page 2: access to the office, free texts, home page and photos. Empties the codes for "no line" and "no
/// station" and an address that is only its prefix, even if a rule fails. On false `out` holds the message, or the pair
/// holds a run-time failure.
[[nodiscard]] bool PF_CheckFrmCompInp2Data(Refusal& out);

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

/// Checks the password dialog against the record and puts an accepted password in the record; the next save stores it.
/// Shows a rejection and focuses the field. On false the dialog's `refused` is set, or the check failed and the pair
/// holds the failure.
[[nodiscard]] bool PF_CheckPwd();

}  // namespace orv
