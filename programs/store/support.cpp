#include <algorithm>
#include <regex>

#include "adapters/machine/ini_reader.h"
#include "adapters/store/file_path.h"
#include "adapters/text/cp932.h"
#include "archive_file.h"
#include "keeper.h"
#include "office_place.h"
#include "private_folder.h"
#include "redaction.h"
#include "version.h"

namespace orv {
namespace {

namespace fs = std::filesystem;

constexpr std::size_t kLargestText = std::size_t{16} << 20;
constexpr std::size_t kLargestProgram = std::size_t{256} << 20;
constexpr std::size_t kMostLogs = 7;

constexpr const char* kReadMe =
    "Made by orv_store support for the support of this office.\n\n"
    "versions.json    versions of the programs and the system\n"
    "status.json      kind and size of the store, number of companies, last nightly backup\n"
    "check.json       the findings of orv_store check\n"
    "settings/        sections, keys and values of system.ini and registry.txt\n"
    "logs/            time, code and routine of each record of the last error logs\n\n"
    "Removed: passwords, users, queries, command lines and comments in settings; texts and statements in logs;\n"
    "everything that companies have entered. The number of a company, names of computers and paths are kept.\n";

/// The files of an office, by the paths in its settings.
class Office {
public:
    explicit Office(const std::string& folder)
        : root_(pathText(fs::canonical(filePath(folder)).make_preferred())),
          paths_(officePaths(root_)),
          files_(paths_),
          settings_(installFolder(root_) + "\\SYS\\system.ini") {}

    const std::string& root() const { return root_; }
    const std::string& settings() const { return settings_; }
    std::string folder(const std::string& key) const {
        return IniReader(files_, codePage_, facts_).GetPrivateProfileString("PATH", key, settings_);
    }
    std::string nativePath(const std::string& path) const { return files_.nativePath(path); }
    std::string text(const std::string& path) const { return codePage_.decode(files_.read(path, kLargestText)); }
    std::string bytes(const std::string& path, std::size_t limit) const { return files_.read(path, limit); }

    /// Reads the end of a file that other users can have put there, so no link is followed.
    std::string endOfLog(const std::string& path) const {
        const FileStream stream = files_.open(path);
        std::fseek(stream.get(), -static_cast<long>(std::min<std::uint64_t>(files_.fileSize(path), kLargestText)),
                   SEEK_END);
        std::string bytes(kLargestText, '\0');
        bytes.resize(std::fread(bytes.data(), 1, bytes.size(), stream.get()));
        return codePage_.decode(bytes);
    }

private:
    std::string root_;
    SystemPaths paths_;
    SystemFiles files_;
    Cp932 codePage_;
    SystemFacts facts_;
    std::string settings_;
};

/// The version that the build has written into the program.
std::string versionIn(const std::string& program) {
    const std::size_t mark = program.find(kVersionMark);
    if (mark == std::string::npos) {
        return "unknown";
    }
    const std::size_t version = mark + kVersionMark.size();
    return program.substr(version, program.find_first_not_of("0123456789.", version) - version);
}

std::string asText(const nlohmann::ordered_json& facts) {
    return facts.dump(2, ' ', true, nlohmann::json::error_handler_t::replace) + "\n";
}

std::string versions(const Office& office) {
    nlohmann::ordered_json facts = {
        {"orv_store", kVersion},
        {"KELT_COS.EXE", versionIn(office.bytes(office.folder("BIN") + "\\KELT_COS.EXE", kLargestProgram))}};
    facts.update(systemVersions());
    return asText(facts);
}

Options ofStore(const Office& office) {
    Options options;
    options.store = office.nativePath(office.folder("MDB") + "\\ORVESTATE.MDB");
    options.json = true;
    return options;
}

std::string status(const Office& office) {
    nlohmann::ordered_json facts = showStatus(ofStore(office)).facts;
    facts.erase("locks");  // they are in the check
    return asText(facts);
}

std::string check(const Office& office) {
    return asText(redactedCheck(checkStore(ofStore(office)).facts, office.root()));
}

/// The system's paths of the newest error logs.
std::vector<std::string> lastLogs(const Office& office) {
    const std::string folder = office.folder("LOGERR");
    std::vector<std::string> names;
    std::error_code none;
    for (const fs::directory_entry& entry : fs::directory_iterator(filePath(office.nativePath(folder)), none)) {
        const std::string name = pathText(entry.path().filename());
        if (std::regex_match(name, std::regex(R"(\d{6}_err\.log)"))) {
            names.push_back(name);
        }
    }
    std::ranges::sort(names, std::greater());
    names.resize(std::min(names.size(), kMostLogs));
    std::ranges::for_each(names, [&](std::string& name) { name.insert(0, folder + "\\"); });
    return names;
}

class SupportFile {
public:
    explicit SupportFile(const std::string& path) : archive_(path) {}

    /// Something that cannot be read must not prevent the rest. The text of the failure is left out, because it can
    /// quote a part of a setting.
    template <typename Read>
    void add(const std::string& name, Read read) {
        std::string text;
        try {
            text = read();
        } catch (const std::exception& failure) {
            text = "not available [" + errorCode(failure) + "]\n";
        }
        archive_.add("orv-support/" + name, text);
    }
    void finish() { archive_.finish(); }

private:
    ArchiveFile archive_;
};

void collect(const Office& office, SupportFile& file) {
    file.add("README.txt", [] { return kReadMe; });
    file.add("versions.json", [&] { return versions(office); });
    file.add("status.json", [&] { return status(office); });
    file.add("check.json", [&] { return check(office); });
    file.add("settings/system.ini", [&] { return redactedSettings(office.text(office.settings())); });
    file.add("settings/shared_system.ini",
             [&] { return redactedSettings(office.text(office.folder("SYS") + "\\system.ini")); });
    file.add("settings/registry.txt", [&] { return redactedSettings(registryText(office.root())); });
    for (const std::string& log : lastLogs(office)) {
        file.add("logs/" + log.substr(log.rfind('\\') + 1), [&] { return redactedLog(office.endOfLog(log)); });
    }
    file.finish();
}

}  // namespace

StoreReport writeSupportFile(const Options& options) {
    const std::string folder = options.other.empty() ? "." : options.other;
    if (!fs::exists(filePath(folder) / kFileOfOffice)) {
        throw KeeperFailure(folder + ": is not the folder of an office, which contains " + kFileOfOffice);
    }
    const Office office(folder);
    const PrivateFolder own(filePath(options.store).parent_path());
    SupportFile file(own.file());
    collect(office, file);
    own.publish(options.store, {});
    StoreReport report;
    report.facts = {{"office", office.root()}, {"file", options.store}};
    report.say(options.store + ": written; it contains no password and no data of a company");
    return report;
}

}  // namespace orv
