#pragma once

#include <cstddef>
#include <ostream>
#include <string>
#include <string_view>
#include <vector>

namespace tervale {

/// Columns of text for eyes, in UTF-8. Nothing in a cell reaches the terminal but characters that
/// print.
class Table {
  public:
    enum class Alignment { left, right };
    struct Column {
        std::string title;
        Alignment alignment = Alignment::left;
        /// In characters, for rows that are not known when the first is printed.
        std::size_t leastWidth = 0;
    };
    using Row = std::vector<std::string>;

    explicit Table(std::vector<Column> columns);

    /// As many cells as there are columns.
    void add(Row row);
    /// The titles and all rows, each column as wide as its widest cell.
    void print(std::ostream& out) const;

    /// One line at a time, each column as wide as its title or its least width.
    void printTitles(std::ostream& out) const;
    void print(std::ostream& out, const Row& row) const;

  private:
    std::vector<std::size_t> leastWidths() const;
    void printLine(std::ostream& out, const Row& row, const std::vector<std::size_t>& widths) const;
    Row titles() const;

    std::vector<Column> columns;
    std::vector<Row> rows;
};

/// The text with a blank for every character that a terminal obeys, and with whatever is no UTF-8
/// repaired.
std::string printable(std::string_view text);

} // namespace tervale
