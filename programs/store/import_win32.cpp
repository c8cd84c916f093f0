#include "keeper.h"

namespace orv {

/// The reader for these files needs a system that can lock it up.
StoreReport importJet(const Options&) {
    throw KeeperFailure(
        "以前のデータベースの取り込み（import）は Windows では使えません。Linux の orv_store で取り込み、"
        "できたデータベースのファイルをこのコンピューターに置いてください。");
}

}  // namespace orv
