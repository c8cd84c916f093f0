#include "adapters/store/store_connection.h"

#include "platform/value.h"

namespace orv {

std::vector<StoreObject> objectsIn(const RecordsetPtr& rows) {
    std::vector<StoreObject> all;
    for (; !rows->Eof(); rows->MoveNext()) {
        all.push_back({toText(rows->Fields(0)), toText(rows->Fields(1)), toText(rows->Fields(2))});
    }
    return all;
}

}  // namespace orv
