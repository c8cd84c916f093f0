#pragma once

#include <string>

namespace orv {

/// Takes the page of that form name into the record, whole and unchecked. A name of no page, and a page that is not
/// ready, copies nothing and is no failure. False: the pair tells why; what was copied before stays copied.
[[nodiscard]] bool PF_SetData_tCustomerInfo(const std::string& formName);

[[nodiscard]] bool PF_SetData_tCustomerInfo0();
[[nodiscard]] bool PF_SetData_tCustomerInfo1();
[[nodiscard]] bool PF_SetData_tCustomerInfo2();
[[nodiscard]] bool PF_SetData_tCustomerInfo3();
[[nodiscard]] bool PF_SetData_tCustomerInfo4();

}  // namespace orv
