#include "platform/run_time_error.h"

#include <gtest/gtest.h>

#include <array>
#include <cstdio>
#include <map>
#include <sstream>

#include "sample_folder.h"
#include "support/temp_folder.h"

namespace orv {
namespace {

/// The administrator's guide lists all failures with their texts. Its last row of a number counts.
TEST(RunTimeError, EachFailureHasTheTextOfTheGuide) {
    const auto repository = std::filesystem::path(kSampleFolder).parent_path();
    std::istringstream guide(readFile(repository / "docs/ja/operating/troubleshooting.md"));
    std::map<int, std::string> texts;
    for (std::string line; std::getline(guide, line);) {
        int number = 0;
        std::array<char, 1000> text{};
        if (std::sscanf(line.c_str(), "| `%d` | %999[^|]", &number, text.data()) == 2) {
            texts[number] = std::string(text.data(), std::string_view(text.data()).find_last_not_of(' ') + 1);
        }
    }
    for (int number = 0; number < 30000; ++number) {
        if (number / 10 == 2010) continue;  // of the picture library
        const auto row = texts.find(number);
        EXPECT_EQ(describe(Failure(number)), row == texts.end() ? "不明なエラーです。" : row->second) << number;
    }
}

}  // namespace
}  // namespace orv
