#include "adapters/http/curl_library.h"

#include <dlfcn.h>

#include "platform/run_time_error.h"

namespace orv {
namespace {

constexpr const char* kName = "libcurl.so.4";

template <class Function>
void take(void* library, const char* name, Function& function) {
    function = library == nullptr ? nullptr : reinterpret_cast<Function>(::dlsym(library, name));
    if (function == nullptr) {
        throw RunTimeError(Failure::Internal, std::string("通信のライブラリ（") + kName + "）を使えません。");
    }
}

}  // namespace

CurlLibrary::CurlLibrary() {
    void* library = ::dlopen(kName, RTLD_NOW | RTLD_LOCAL);
    decltype(&curl_global_init) globalInit = nullptr;
    take(library, "curl_global_init", globalInit);
    take(library, "curl_easy_init", easyInit);
    take(library, "curl_easy_setopt", easySetopt);
    take(library, "curl_easy_getinfo", easyGetinfo);
    take(library, "curl_easy_cleanup", easyCleanup);
    take(library, "curl_easy_escape", easyEscape);
    take(library, "curl_free", free);
    take(library, "curl_multi_init", multiInit);
    take(library, "curl_multi_add_handle", multiAddHandle);
    take(library, "curl_multi_perform", multiPerform);
    take(library, "curl_multi_poll", multiPoll);
    take(library, "curl_multi_info_read", multiInfoRead);
    take(library, "curl_multi_remove_handle", multiRemoveHandle);
    take(library, "curl_multi_cleanup", multiCleanup);
    take(library, "curl_slist_append", slistAppend);
    take(library, "curl_slist_free_all", slistFreeAll);
    if (globalInit(CURL_GLOBAL_DEFAULT) != CURLE_OK) {
        throw RunTimeError(Failure::Internal, std::string("通信のライブラリ（") + kName + "）を始められません。");
    }
}

const CurlLibrary& curlLibrary() {
    static const CurlLibrary library;
    return library;
}

}  // namespace orv
