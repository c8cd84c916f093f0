#include "store/company_claim.h"

#include "platform/machine/machine_facts.h"
#include "platform/machine/running_programs.h"
#include "platform/services.h"

namespace orv {
namespace {

/// Contains the computer's name as its lock does.
std::string nameOf(const std::string& userId) { return services().facts->GetComputerName() + "/" + userId; }

}  // namespace

bool claimCompany(const std::string& userId) {
    return services().running == nullptr || services().running->take(nameOf(userId));
}

void giveUpCompany(const std::string& userId) {
    if (services().running != nullptr) {
        services().running->leave(nameOf(userId));
    }
}

}  // namespace orv
