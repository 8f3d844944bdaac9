#pragma once

#include "SMC/Fan.h"

#include <cstddef>
#include <ostream>
#include <string>
#include <string_view>
#include <vector>

namespace tervale {

// Text for people, in UTF-8.

/// The JSON text with an escape for each control character that JSON lets through: U+007F and
/// U+0080 to U+009F.
std::string terminalSafe(std::string_view json);
/// The same, and a line break.
void printJSON(std::ostream& out, std::string_view json);

/// Such as "2317 rpm"; a dash stands for a number that no fan has.
std::string speedText(double rpm);
/// Such as "1350–5000 rpm".
std::string rangeText(const Fan& fan);

/// The length of a full bar, in characters.
inline constexpr std::size_t barLength = 24;

/// A fraction of 0 to 1 as a bar of block characters, to an eighth of a character; empty for 0,
/// less than 0 and NaN, full above 1.
std::string barText(double fraction);

/// Columns of text. Only what `printable` lets through is printed of a cell.
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

} // namespace tervale
