#include "validation/rules/licence_page_check.h"

#include "validation/rules/association_rules.h"
#include "validation/rules/licence_rules.h"

namespace orv {

bool PF_CheckFrmCompInp1Data(Refusal& out) {
    return checked("[ PF_CheckFrmCompInp1Data ] ", out, [&] { return licencePasses(out) && associationsPass(out); });
}

}  // namespace orv
