#pragma once

#include <QDialog>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QStringList>
#include <QTableWidget>
#include <optional>

#include "search_rows.h"

namespace search {

/// The arguments from the calling program, separated by commas: current values, handles of the fields to fill, and the
/// handle of the button to press at the end.
struct CommandLine {
    QStringList values;
    QStringList handles;
    QString button;
};

/// `text` is everything after the program's name. Extra commas belong to the last value but one, which can be any text.
/// Returns nothing if parts are missing or a handle is not a number.
std::optional<CommandLine> readCommandLine(const QString& text, qsizetype valueCount, qsizetype handleCount);

/// The properties of a search program.
struct SearchPlan {
    const char* title;
    const char* prompt;
    const char* nothingFound;
    /// In the folder DAT next to the program.
    const char* dataFile;
    qsizetype fieldCount;
    /// The fields of a row that are columns of the list, and the column titles.
    QList<int> shown;
    QStringList headings;
    /// The fields of a row in the order of the handles.
    QList<int> sent;
    /// The number of values at the start of the command line: none, or a row in the order of `sent`.
    qsizetype valueCount;
};

/// A search text and the rows that contain it. The arrow keys move in the list while the text is typed. Enter or a
/// double click chooses, Esc cancels.
class SearchWindow : public QDialog {
public:
    /// `current` contains the initial values, or none.
    SearchWindow(const SearchPlan& plan, QList<Row> rows, const QStringList& current);

    /// Returns the chosen row.
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

/// Runs a search program. `count` and `arguments` are those of main().
int runSearch(const SearchPlan& plan, int count, char* arguments[]);

}  // namespace search
