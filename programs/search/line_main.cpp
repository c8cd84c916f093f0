// The rail search: finds a line and a station with their codes by a part of either name.
#include "search_window.h"

int main(int argc, char* argv[]) {
    const search::SearchPlan plan{.title = "沿線検索",
                                  .prompt = "沿線名または駅名(&A)",
                                  .nothingFound = "該当する沿線・駅がありません。",
                                  .dataFile = "lines.csv",
                                  .fieldCount = 4,
                                  .shown = {1, 3},
                                  .headings = {"沿線", "駅"},
                                  .sent = {0, 2, 1, 3},
                                  .valueCount = 0};
    return search::runSearch(plan, argc, argv);
}
