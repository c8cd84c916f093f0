#pragma once

namespace orv {

// Fill the lists of a page from the store and stop at the first failure. On false the pair holds the failure.

[[nodiscard]] bool P_MakeComboBox_CompInp0();
[[nodiscard]] bool P_MakeComboBox_CompInp1();
[[nodiscard]] bool P_MakeComboBox_CompInp2();
[[nodiscard]] bool P_MakeComboBox_CompInp3();
[[nodiscard]] bool P_MakeComboBox_CompInp4();

/// Fills the lists of the page with that number.
[[nodiscard]] bool makeListsOf(int pageNumber);

}  // namespace orv
