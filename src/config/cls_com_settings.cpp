#include <algorithm>
#include <array>
#include <string_view>

#include "config/cls_com.h"
#include "config/settings.h"
#include "logging/setting_trap.h"
#include "platform/ascii.h"
#include "platform/machine/clock.h"
#include "platform/machine/file_system.h"
#include "platform/services.h"
#include "platform/utf8.h"
#include "platform/value.h"
#include "validation/text/conversions.h"

namespace orv {
namespace {

struct LeafletFolder {
    std::string_view code;
    std::string_view key;
};

constexpr std::array<LeafletFolder, 3> kByFirstTwo{{
    {"RH", "ChintaiDir"},
    {"RJ", "TenantoDir"},
    {"SL", "TochiDir"},
}};

constexpr std::array<LeafletFolder, 4> kByWholeCode{{
    {"SHM", "MansionDir"},
    {"SHW", "MansionDir"},
    {"SHR", "KodateDir"},
    {"SHT", "KodateDir"},
}};

template <std::size_t Count>
std::string findKey(const std::array<LeafletFolder, Count>& rows, std::string_view code) {
    const auto found =
        std::find_if(rows.begin(), rows.end(), [&](const LeafletFolder& row) { return row.code == code; });
    return found == rows.end() ? std::string() : std::string(found->key);
}

/// Returns "" for a code without a folder of its own.
std::string leafletKey(const std::string& code) {
    const std::string kind = code.substr(0, 2);
    return kind == "SH" ? findKey(kByWholeCode, trimmed(code)) : findKey(kByFirstTwo, kind);
}

std::string replaced(std::string text, std::string_view from, std::string_view to) {
    for (std::size_t at = text.find(from); at != std::string::npos; at = text.find(from, at + to.size())) {
        text.replace(at, from.size(), to);
    }
    return text;
}

}  // namespace

std::string cls_Com::SysSystemIni() const {
    return setting([&]() -> std::optional<std::string> {
        std::string path;
        return P_ResolveIniPath(path) ? std::optional(path) : std::nullopt;
    });
}

std::string cls_Com::SysKcount() const { return replaced(upperCase(SysSystemIni()), "SYSTEM.INI", "Kcount.ini"); }

std::string cls_Com::SysMsgTbl() const {
    return setting([] { return P_AddBackslash(services().fileSystem->programFolder()) + "..\\SYS\\MSG.TBL"; });
}

std::string cls_Com::IniMinorVer() const {
    return treated("VERSION", "MINOR", [](const std::string& edition) { return std::string(trimmed(edition)); });
}

std::string cls_Com::MinorVer() const {
    VimblFolder();  // the value is not used, but callers rely on a failure of this setting being logged
    return asRead("VERSION", "MINOR");
}

std::string cls_Com::ORV_LANTYPE() const {
    return setting([&]() -> std::optional<std::string> {
        const auto himself = value("LAN", "HIMSELF");
        if (!himself || *himself != "CLIENT") {
            return himself ? std::optional<std::string>("") : std::nullopt;
        }
        const auto type = value("LAN", "TYPE");
        return type && type->empty() ? "LANA" : type;
    });
}

std::string cls_Com::ORV_RetryCount() const {
    return treated("NET", "RETRY", [](const std::string& retries) {
        return toText(Value(toNumber(isNumeric(retries) ? retries : "3") + 1));
    });
}

std::string cls_Com::VimblChirasiDir(const std::string& code) const {
    return treated("VIMBL", leafletKey(code),
                   [&](const std::string& name) { return VimblChirasiRoot() + P_AddBackslash(name); });
}

std::optional<std::string> cls_Com::value(const std::string& section, const std::string& key) const {
    std::string path;
    std::string read;
    if (P_ResolveIniPath(path) && PF_GetProFile(path, section, key, read)) {
        return read;
    }
    return std::nullopt;
}

std::string cls_Com::asRead(const std::string& section, const std::string& key, const std::string& onFailure) const {
    return setting([&] { return value(section, key); }, onFailure);
}

std::string cls_Com::treated(const std::string& section, const std::string& key, const Treatment& treatment) const {
    return setting([&]() -> std::optional<std::string> {
        const auto read = value(section, key);
        return read ? std::optional(treatment(*read)) : std::nullopt;
    });
}

std::string cls_Com::orIfEmpty(const std::string& section, const std::string& key, const std::string& fallback) const {
    return treated(section, key, [&](const std::string& read) { return read.empty() ? fallback : read; });
}

std::string cls_Com::withBackslash(const std::string& section, const std::string& key) const {
    return treated(section, key, P_AddBackslash);
}

std::string cls_Com::ofTerminal(const std::string& key) const {
    return setting([&]() -> std::optional<std::string> {
        std::string read;
        return PF_GetProFile(SysKcount(), "NO_00", key, read) ? std::optional(read) : std::nullopt;
    });
}

std::string cls_Com::vimblProgram(const std::string& key) const {
    return treated("VIMBL", key, [&](const std::string& file) { return VimblFolder() + file; });
}

/// Begins with a blank, so that it can be appended to a program's name.
std::string cls_Com::vimblArgument(const std::string& key) const {
    return treated("VIMBL", key, [](const std::string& argument) { return " " + argument; });
}

std::string cls_Com::today() { return formatMoment(services().clock->now(), "yymmdd"); }

}  // namespace orv
