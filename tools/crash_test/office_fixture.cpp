#include "office_fixture.h"

#include <algorithm>
#include <fstream>
#include <iterator>
#include <set>
#include <string_view>

#include "adapters/pictures/picture_files.h"
#include "adapters/posix/install_paths.h"
#include "adapters/system/system_files.h"

namespace crash_test {
namespace {

namespace fs = std::filesystem;

constexpr const char* kFolders[] = {"MDB", "IMG", "TMP", "LOG"};
constexpr const char* kTables[] = {"TBL_CUSTOMER_INFO", "TBL_CUSTOMER_ADD", "TBL_CUSTOMER_DATE"};
constexpr const char* kRunFolder = "TMP/.orv-run-";
constexpr std::size_t kIdLength = 9;
constexpr const char* kWords[] = {"一回目", "二回目"};
constexpr int kRounds = 2;

std::string readFile(const fs::path& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

/// Replaces the random name of a run's folder in TMP. A second folder, which no run has removed, stays visible.
std::string withoutRunName(std::string name, std::set<std::string>& runs) {
    if (name.starts_with(kRunFolder)) {
        const std::size_t end = name.find('/', std::string_view(kRunFolder).size());
        runs.insert(name.substr(0, end));
        name.replace(0, end, "TMP/run" + std::string(runs.size() > 1 ? " of a dead one" : ""));
    }
    return name;
}

std::string photoName(int round, int slot) { return std::to_string(round) + std::to_string(slot) + ".jpg"; }

}  // namespace

OfficeFixture::OfficeFixture(const fs::path& folder, const std::string& serverPort)
    : folder_(folder), office_(folder / "office", serverPort) {
    makePhotos();
    copyFolders(orv(), folder_ / "first");
    observer_ = observerOfFile(office_.store(), folder_ / "seen");
}

void OfficeFixture::giveUpAfter(std::chrono::milliseconds limit) {
    const std::string name = "\nTIMEOUT=";
    changeSettings(name + std::to_string(limit_.count()) + "\r", name + std::to_string(limit.count()) + "\r");
    limit_ = limit;
}

void OfficeFixture::changeSettings(const std::string& usual, const std::string& other) const {
    const fs::path settings = orv() / "SYS/system.ini";
    std::string text = readFile(settings);
    for (std::size_t at = text.find(usual); at != std::string::npos; at = text.find(usual, at + other.size())) {
        text.replace(at, usual.size(), other);
    }
    std::ofstream(settings, std::ios::binary) << text;
}

/// Larger than the limits, so that each is fitted.
void OfficeFixture::makePhotos() const {
    const orv::InstallPaths paths(office_.folder().string(), (orv() / "BIN").string());
    orv::SystemFiles files(paths);
    const orv::PictureFiles pictures(files);
    for (int round = 0; round < kRounds; ++round) {
        for (int slot = 0; slot < 2; ++slot) {
            const std::string stored = std::to_string(slot + 1);
            const auto picture =
                pictures.load("C:\\ORV\\IMG\\" + stored + "\\000004601COS00000000_0" + stored + ".jpg");
            picture->size(700 + 10 * round, 500);
            picture->save("C:\\ORV\\PHOTO\\" + photoName(round, slot),
                          pictures.info("C:\\ORV\\IMG\\1\\000004601COS00000000_01.jpg").format, 24, 90);
        }
    }
}

void OfficeFixture::reachServer(const std::string& text) {
    isServed_ = true;
    observer_ = observerOfServer(text);
    std::ofstream(office_.store(), std::ios::trunc) << text << "\n";
    fs::copy_file(office_.store(), folder_ / "first/MDB" / office_.store().filename(),
                  fs::copy_options::overwrite_existing);
}

void OfficeFixture::copyFolders(const fs::path& from, const fs::path& to) const {
    for (const char* name : kFolders) {
        fs::remove_all(to / name);
        fs::create_directories(to);
        fs::copy(from / name, to / name, fs::copy_options::recursive);
    }
}

void OfficeFixture::begin(const CompanyKind& kind) {
    copyFolders(folder_ / "first", orv());
    observer_->beginAgain();
    kind_ = &kind;
    observer_->run(kind.before);
    observer_->keep();
    copyFolders(orv(), folder_ / "kept");
    known_.clear();
    for (const std::string& id : observer_->rows("SELECT USER_ID FROM TBL_CUSTOMER_INFO")) {
        known_.insert(id);
    }
}

void OfficeFixture::comeBack() {
    copyFolders(folder_ / "kept", orv());
    observer_->comeBack();
}

std::vector<std::string> OfficeFixture::watched(bool kills) const {
    if (isServed_ && !kills) {
        return folders({"MDB"});
    }
    std::vector<std::string> all = folders({"PHOTO", "MDB", "IMG", "TMP", "LOG"});
    if (!kills && !kind_->replacesPhotos) {
        std::ranges::move(folders({"SYS", "HLP"}), std::back_inserter(all));
    }
    return all;
}

std::vector<std::string> OfficeFixture::folders(std::initializer_list<const char*> names) const {
    std::vector<std::string> all;
    for (const char* name : names) {
        all.push_back((orv() / name).string());
    }
    return all;
}

Scenario OfficeFixture::scenario(const std::string& company, int round) const {
    Scenario scenario{(orv() / "BIN").string(), company, kWords[round], {}, (folder_ / "report").string()};
    for (int slot = 0; kind_->replacesPhotos && slot < 2; ++slot) {
        scenario.photos.push_back((orv() / "PHOTO" / photoName(round, slot)).string());
    }
    return scenario;
}

std::string OfficeFixture::state() {
    std::string all;
    for (const std::string table : kTables) {
        std::vector<std::string> rows = observer_->rows("SELECT * FROM " + table);
        for (std::string& row : rows) {
            if (!known_.contains(row.substr(0, kIdLength))) {
                row.replace(0, kIdLength, "#");
            }
        }
        std::ranges::sort(rows);
        for (const std::string& row : rows) {
            all += row + "\n";
        }
    }
    return all;
}

std::string OfficeFixture::one(const std::string& sql) {
    const std::vector<std::string> found = observer_->rows(sql);
    return found.empty() ? "" : found.front();
}

std::vector<std::string> OfficeFixture::newNumbers() {
    std::vector<std::string> numbers = observer_->rows("SELECT USER_ID FROM TBL_CUSTOMER_INFO");
    std::erase_if(numbers, [this](const std::string& number) { return known_.contains(number); });
    return numbers;
}

std::vector<std::string> OfficeFixture::ownLocks() {
    return observer_->rows("SELECT USER_ID FROM TBL_LOCK WHERE LOCAL_INFO <> 'FRONT-PC02'");
}

Files OfficeFixture::files() const {
    Files found;
    std::set<std::string> runs;
    for (const std::string& folder : watched(true)) {
        for (const auto& entry : fs::recursive_directory_iterator(folder)) {
            const std::string name = withoutRunName(entry.path().lexically_relative(orv()).string(), runs);
            if (entry.is_regular_file() && !name.starts_with("MDB/ORVESTATE.MDB") && !name.starts_with("LOG/")) {
                found[name] = fingerprint(entry.path().string());
            }
        }
    }
    if (fs::exists(office_.store().string() + "-journal")) {
        found[kJournal] = "";
    }
    return found;
}

std::vector<std::string> OfficeFixture::log(bool& isWhole) const {
    const std::string bytes = readFile(orv() / "LOG/ERR/260504_err.log");
    isWhole = bytes.empty() || bytes.ends_with("\r\n");
    std::vector<std::string> records;
    std::size_t from = 0;
    while (from < bytes.size()) {
        const std::size_t end = std::min(bytes.find("\r\n", from), bytes.size());
        records.push_back(bytes.substr(from, end - from));
        from = end + 2;
    }
    return records;
}

std::vector<std::string> OfficeFixture::report() const {
    std::ifstream file(folder_ / "report");
    std::vector<std::string> lines;
    for (std::string line; std::getline(file, line);) {
        lines.push_back(line);
    }
    return lines;
}

}  // namespace crash_test
