#include "platform/services.h"

namespace orv {

Services& services() {
    static Services theServices;
    return theServices;
}

}  // namespace orv
