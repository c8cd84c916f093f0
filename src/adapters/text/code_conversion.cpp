#include "adapters/text/code_conversion.h"

#include "platform/machine/code_page.h"
#include "platform/run_time_error.h"

#ifdef _WIN32
#include <windows.h>
#else
#include <iconv.h>

#include <bit>
#include <cstdint>
#endif

namespace orv {
namespace {

constexpr const char* kNoTables = "文字コード CP932 の変換表がありません。";

#ifdef _WIN32

constexpr UINT kCodePage = 932;

/// Writes the two bytes of the character. False if there is no such code.
bool decodeOne(std::string_view code, char* out) {
    wchar_t character = 0;
    const int count = ::MultiByteToWideChar(kCodePage, MB_ERR_INVALID_CHARS, code.data(), static_cast<int>(code.size()),
                                            &character, 1);
    out[0] = static_cast<char>(character >> 8U);
    out[1] = static_cast<char>(character & 0xFFU);
    return count == 1;
}

/// Returns the number of bytes written, or 0 if the code page does not have the character itself.
int encodeOne(std::string_view utf16, char* out) {
    const auto character =
        static_cast<wchar_t>(static_cast<unsigned char>(utf16[0]) << 8U | static_cast<unsigned char>(utf16[1]));
    BOOL replaced = FALSE;
    const int count = ::WideCharToMultiByte(kCodePage, WC_NO_BEST_FIT_CHARS, &character, 1, out, 2, nullptr, &replaced);
    return replaced == FALSE ? count : 0;
}

#else

constexpr const char* kCodePage = "CP932";
constexpr const char* kUtf16 = "UTF-16BE";

#endif

}  // namespace

#ifdef _WIN32

CodeConversion::CodeConversion(Direction direction) : direction_(direction) {
    if (::IsValidCodePage(kCodePage) == 0) {
        throw RunTimeError(Failure::Internal, kNoTables);
    }
}

CodeConversion::~CodeConversion() = default;

std::string_view CodeConversion::operator()(std::string_view bytes) {
    std::size_t filled = 0;
    while (!bytes.empty()) {
        const bool decodes = direction_ == Direction::Decode;
        const std::size_t width = decodes && !CodePage::isLeadByte(bytes[0]) ? 1 : 2;
        char* const out = converted_.data() + filled;
        const int count = decodes ? decodeOne(bytes.substr(0, width), out) * 2 : encodeOne(bytes.substr(0, width), out);
        if (count == 0) {
            break;
        }
        filled += static_cast<std::size_t>(count);
        bytes.remove_prefix(width);
    }
    return {converted_.data(), filled};
}

#else

CodeConversion::CodeConversion(Direction direction)
    : direction_(direction),
      handle_(direction_ == Direction::Decode ? iconv_open(kUtf16, kCodePage) : iconv_open(kCodePage, kUtf16)) {
    // The C library returns the number -1 for an invalid handle.
    if (std::bit_cast<std::intptr_t>(handle_) == -1) {
        throw RunTimeError(Failure::Internal, kNoTables);
    }
}

CodeConversion::~CodeConversion() { iconv_close(handle_); }

std::string_view CodeConversion::operator()(std::string_view bytes) {
    char* in = const_cast<char*>(bytes.data());
    char* out = converted_.data();
    std::size_t inLeft = bytes.size();
    std::size_t outLeft = converted_.size();
    iconv(handle_, &in, &inLeft, &out, &outLeft);
    return {converted_.data(), converted_.size() - outLeft};
}

#endif

}  // namespace orv
