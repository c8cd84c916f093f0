// The address search: finds an address and its code by a post code or a part of the address.
#include "search_window.h"

int main(int argc, char* argv[]) {
    const search::SearchPlan plan{.title = "住所検索",
                                  .prompt = "郵便番号または住所(&A)",
                                  .nothingFound = "該当する住所がありません。",
                                  .dataFile = "addresses.csv",
                                  .fieldCount = 3,
                                  .shown = {0, 1},
                                  .headings = {"郵便番号", "所在地"},
                                  .sent = {0, 1, 2},
                                  .valueCount = 3};
    return search::runSearch(plan, argc, argv);
}
