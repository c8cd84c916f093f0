#pragma once

#include <QDialog>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTableWidget>

#include "search_rows.h"

namespace search {

/// What one of the search programs is.
struct SearchPlan {
    const char* title;
    const char* prompt;
    const char* nothingFound;
    /// Beside the program, in the folder DAT.
    const char* dataFile;
    qsizetype fieldCount;
    /// Which fields of a row are columns of the list, and what stands above them.
    QList<int> shown;
    QStringList headings;
    /// The fields of a row in the order of the handles.
    QList<int> sent;
    /// How many values the command line begins with: none, or a row in the order of `sent`.
    qsizetype valueCount;
};

/// A text to look for and the rows that hold it. The arrows move in the list while the text is being typed; Enter or a
/// double click chooses, Esc leaves without.
class SearchWindow : public QDialog {
public:
    /// `current`: values to begin with, or none.
    SearchWindow(const SearchPlan& plan, QList<Row> rows, const QStringList& current);

    /// The row that was chosen.
    const Row& chosen() const { return rows_[list_->currentRow()]; }

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void fillList();
    void layOut();
    void begin(const QStringList& current);
    void filter();
    void choose();

    const SearchPlan& plan_;
    QList<Row> rows_;
    QLineEdit* text_;
    QTableWidget* list_;
    QLabel* state_;
    QPushButton* choose_;
};

/// A whole search program. `arguments` and its count as of main().
int runSearch(const SearchPlan& plan, int count, char* arguments[]);

}  // namespace search
