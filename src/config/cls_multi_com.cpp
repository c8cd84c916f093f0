#include "config/cls_multi_com.h"

#include <optional>

#include "config/settings.h"
#include "logging/setting_trap.h"

namespace orv {
namespace {

/// Returns a value of section NET in `file`, or nothing if it cannot be read.
std::optional<std::string> netValue(const std::string& file, const std::string& key, std::string_view ifEmpty) {
    std::string read;
    if (!PF_GetProFile(file, "NET", key, read)) {
        return std::nullopt;
    }
    return read.empty() ? std::string(ifEmpty) : read;
}

std::string officeFile(const cls_Com& settings) { return settings.SeverSysPath() + "system.ini"; }

}  // namespace

std::string cls_Multi_Com::ORV_IMAGE_URL() const {
    return setting([&] { return netValue(officeFile(com_), "ORVIMG", kImageHost); }, std::string(kImageHost));
}

std::string cls_Multi_Com::ORV_IMAGE_HTTP_URL() const {
    return setting(
        [&]() -> std::optional<std::string> {
            const auto url = netValue(officeFile(com_), "ORVIMG_HTTP", kImageUploadUrl);
            return url ? std::optional(WebMakePath(*url)) : std::nullopt;
        },
        std::string(kImageHost));
}

std::string cls_Multi_Com::ORV_IMAGE_TRANSFER_TYPE() const {
    return setting([&] { return netValue(officeFile(com_), "TRANSFERTYPE", "FTP"); }, "FTP");
}

Value cls_Multi_Com::UserDataGet(const Value& /*key*/) const { return {}; }

std::string cls_Multi_Com::ORV_FtpOverwrite() const {
    return setting([&] { return netValue(com_.SysSystemIni(), "FTPOVERWRITE", "True"); });
}

std::string cls_Multi_Com::WebMakePath(const std::string& path) const {
    return path.empty() || path.ends_with('/') ? path : path + "/";
}

}  // namespace orv
