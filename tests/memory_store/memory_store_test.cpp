#include "memory_store.h"

#include "adapters/store/store_service.h"
#include "adapters/store_contract.h"
#include "sample_folder.h"
#include "support/memory_machine.h"
#include "support/temp_folder.h"

namespace orv {
namespace {

StoreUnderTest makeStore(std::shared_ptr<void>& keep) {
    auto folder = std::make_shared<TempFolder>();
    keep = folder;
    const std::string path = folder->file("ORVESTATE.MDB");
    for (const char* name : {"schema.sql", "masters.sql", "companies.sql", "locks.sql"}) {
        runInMemory(path, readFile(kSampleFolder + "/sql/" + name));
    }
    return {std::make_unique<StoreService>(nativePaths(), memoryStore()), path};
}

INSTANTIATE_TEST_SUITE_P(Memory, StoreContract, ::testing::Values(StoreFactory{"Memory", makeStore}),
                         [](const auto& instance) { return instance.param.name; });

}  // namespace
}  // namespace orv
