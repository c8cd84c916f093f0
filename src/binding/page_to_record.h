#pragma once

#include <string>

namespace orv {

/// Copies the page with that form name to the record, completely and without checks. Does nothing for an unknown name
/// or a page that is not ready. On false the pair holds the failure, and values copied before it remain.
[[nodiscard]] bool PF_SetData_tCustomerInfo(const std::string& formName);

[[nodiscard]] bool PF_SetData_tCustomerInfo0();
[[nodiscard]] bool PF_SetData_tCustomerInfo1();
[[nodiscard]] bool PF_SetData_tCustomerInfo2();
[[nodiscard]] bool PF_SetData_tCustomerInfo3();
[[nodiscard]] bool PF_SetData_tCustomerInfo4();

}  // namespace orv
