#pragma once

#include "support/temp_folder.h"
#include "support/variable.h"

namespace orv {

/// The system's own settings reject old TLS. In these tests every program accepts it, so that only this program rejects
/// it. The TLS library reads the settings once, before the first test.
inline const struct AnyTls {
    const TempFolder folder;
    const Variable settings{"OPENSSL_CONF",
                            folder.write("any.cnf",
                                         "openssl_conf = all\n[all]\nssl_conf = ssl\n[ssl]\nsystem_default = any\n"
                                         "[any]\nMinProtocol = TLSv1\nCipherString = DEFAULT:@SECLEVEL=0\n")};
} anyTls;

}  // namespace orv
