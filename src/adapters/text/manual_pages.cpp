#include "adapters/text/manual_pages.h"

#include <algorithm>
#include <string_view>
#include <utility>

#include "platform/ascii.h"

namespace orv {
namespace {

constexpr std::size_t kLongestPage = 1024 * 1024;
constexpr std::string_view kNameBegins = "<a id=\"";
constexpr std::string_view kNameEnds = "\"></a>";
constexpr std::string_view kLinkBegins = "](";
constexpr std::string_view kPageEnds = ".md";

std::string_view removeLine(std::string_view& text) {
    const std::size_t end = std::min(text.find('\n'), text.size());
    const std::string_view line = text.substr(0, end);
    text.remove_prefix(std::min(end + 1, text.size()));
    return line;
}

/// Returns the name that the line holds; empty for every other line.
std::string_view nameIn(std::string_view line) {
    if (!line.starts_with(kNameBegins) || !line.ends_with(kNameEnds)) {
        return {};
    }
    line.remove_prefix(kNameBegins.size());
    return line.substr(0, line.size() - std::min(line.size(), kNameEnds.size()));
}

std::string headingText(std::string_view heading) { return std::string(trimmedLeft(heading, "# ")); }

ManualPage parsePage(std::string file, std::string_view text) {
    ManualPage page{.file = std::move(file), .markdown = {}, .sections = {}};
    std::vector<std::string> names;
    while (!text.empty()) {
        const std::string_view line = removeLine(text);
        if (const std::string_view name = nameIn(line); !name.empty()) {
            names.emplace_back(name);
            continue;
        }
        if (line.starts_with('#')) {
            page.sections.push_back({std::exchange(names, {}), headingText(line)});
        }
        page.markdown.append(line).append("\n");
    }
    return page;
}

/// Returns the files of the pages to which the text has links. A place within a page is left out.
std::vector<std::string> findLinks(std::string_view text) {
    std::vector<std::string> files;
    for (std::size_t at = text.find(kLinkBegins); at != std::string_view::npos; at = text.find(kLinkBegins, at)) {
        at += kLinkBegins.size();
        const std::string_view target = text.substr(at, text.find_first_of("#)", at) - at);
        if (target.ends_with(kPageEnds) && target.find_first_of("/\\:") == std::string_view::npos) {
            files.emplace_back(target);
        }
    }
    return files;
}

}  // namespace

std::vector<ManualPage> readManual(const FileSystem& files, const std::string& folder) {
    const std::string contents = files.read(folder + kManualContents, kLongestPage);
    std::vector<ManualPage> pages{parsePage(kManualContents, contents)};
    for (std::string& file : findLinks(contents)) {
        const bool isKnown = std::ranges::find(pages, file, &ManualPage::file) != pages.end();
        if (!isKnown && files.exists(folder + file)) {
            const std::string text = files.read(folder + file, kLongestPage);
            pages.push_back(parsePage(std::move(file), text));
        }
    }
    return pages;
}

}  // namespace orv
