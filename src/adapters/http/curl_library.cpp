#include "adapters/http/curl_library.h"

#include "adapters/machine/loaded_library.h"
#include "platform/run_time_error.h"

namespace orv {
namespace {

[[noreturn]] void refuse(const LoadedLibrary& library, const char* why) {
    throw RunTimeError(Failure::Internal, "通信のライブラリ（" + library.file() + "）を" + why);
}

template <class Function>
void loadSymbol(const LoadedLibrary& library, const char* name, Function& function) {
    function = reinterpret_cast<Function>(library.find(name));
    if (function == nullptr) {
        refuse(library, "使えません。");
    }
}

}  // namespace

CurlLibrary::CurlLibrary() {
    const LoadedLibrary library("curl", "4");
    decltype(&curl_global_init) globalInit = nullptr;
    loadSymbol(library, "curl_global_init", globalInit);
    loadSymbol(library, "curl_easy_init", easyInit);
    loadSymbol(library, "curl_easy_setopt", easySetopt);
    loadSymbol(library, "curl_easy_getinfo", easyGetinfo);
    loadSymbol(library, "curl_easy_cleanup", easyCleanup);
    loadSymbol(library, "curl_easy_escape", easyEscape);
    loadSymbol(library, "curl_free", free);
    loadSymbol(library, "curl_multi_init", multiInit);
    loadSymbol(library, "curl_multi_add_handle", multiAddHandle);
    loadSymbol(library, "curl_multi_perform", multiPerform);
    loadSymbol(library, "curl_multi_poll", multiPoll);
    loadSymbol(library, "curl_multi_info_read", multiInfoRead);
    loadSymbol(library, "curl_multi_remove_handle", multiRemoveHandle);
    loadSymbol(library, "curl_multi_cleanup", multiCleanup);
    loadSymbol(library, "curl_slist_append", slistAppend);
    loadSymbol(library, "curl_slist_free_all", slistFreeAll);
    if (globalInit(CURL_GLOBAL_DEFAULT) != CURLE_OK) {
        refuse(library, "始められません。");
    }
}

const CurlLibrary& curlLibrary() {
    static const CurlLibrary library;
    return library;
}

}  // namespace orv
