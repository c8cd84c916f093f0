#pragma once

namespace orv {

// Fill the lists of a page from the store. The first list that fails stops the rest. False: the pair tells why.

[[nodiscard]] bool P_MakeComboBox_CompInp0();
[[nodiscard]] bool P_MakeComboBox_CompInp1();
[[nodiscard]] bool P_MakeComboBox_CompInp2();
[[nodiscard]] bool P_MakeComboBox_CompInp3();
[[nodiscard]] bool P_MakeComboBox_CompInp4();

/// The one of that page number.
[[nodiscard]] bool makeListsOf(int pageNumber);

}  // namespace orv
