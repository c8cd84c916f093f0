#pragma once

#include <curl/curl.h>

namespace orv {

/// The functions of libcurl that a request needs. The library depends on some thirty others. They are loaded with the
/// first request, so that the first page appears sooner.
struct CurlLibrary {
    /// Throws failure 51 if the machine does not have the library.
    CurlLibrary();

    decltype(&curl_easy_init) easyInit = nullptr;
    decltype(&curl_easy_setopt) easySetopt = nullptr;
    decltype(&curl_easy_getinfo) easyGetinfo = nullptr;
    decltype(&curl_easy_cleanup) easyCleanup = nullptr;
    decltype(&curl_easy_escape) easyEscape = nullptr;
    decltype(&curl_free) free = nullptr;
    decltype(&curl_multi_init) multiInit = nullptr;
    decltype(&curl_multi_add_handle) multiAddHandle = nullptr;
    decltype(&curl_multi_perform) multiPerform = nullptr;
    decltype(&curl_multi_poll) multiPoll = nullptr;
    decltype(&curl_multi_info_read) multiInfoRead = nullptr;
    decltype(&curl_multi_remove_handle) multiRemoveHandle = nullptr;
    decltype(&curl_multi_cleanup) multiCleanup = nullptr;
    decltype(&curl_slist_append) slistAppend = nullptr;
    decltype(&curl_slist_free_all) slistFreeAll = nullptr;
};

/// Returns the library, loaded and initialised by the first call.
const CurlLibrary& curlLibrary();

}  // namespace orv
