#include "tervalectl/Formatting.h"

#include "Base/Precondition.h"
#include "Base/Terminal.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <iterator>
#include <utility>

namespace tervale {

namespace {

constexpr std::string_view gap = "  ";

/// In code points.
std::size_t width(std::string_view text) {
    return static_cast<std::size_t>(std::ranges::count_if(
        text, [](char byte) { return (static_cast<unsigned char>(byte) & 0xC0U) != 0x80U; }));
}

/// No fan turns faster.
constexpr double fastest = 1e9;

std::string wholeNumber(double rpm) {
    return std::abs(rpm) <= fastest ? std::to_string(roundedToInteger(rpm)) : "–";
}

} // namespace

std::string terminalSafe(std::string_view json) {
    constexpr char lead = '\xC2';
    const auto escape = [](char byte) {
        constexpr std::string_view digits = "0123456789abcdef";
        const auto value = static_cast<unsigned char>(byte);
        return std::string("\\u00") + digits[value >> 4U] + digits[value & 0xFU];
    };
    std::string safe;
    for (std::size_t i = 0; i < json.size(); ++i) {
        // The byte after the lead is the character itself, and is followed by no other byte.
        const bool isC1 = json[i] == lead && i + 1 < json.size() &&
                          static_cast<unsigned char>(json[i + 1]) < 0xA0U;
        if (isC1)
            safe += escape(json[++i]);
        else if (json[i] == '\x7F')
            safe += escape(json[i]);
        else
            safe += json[i];
    }
    return safe;
}

void printJSON(std::ostream& out, std::string_view json) {
    out << terminalSafe(json) << '\n';
}

std::string speedText(double rpm) {
    return wholeNumber(rpm) + " rpm";
}

std::string rangeText(const Fan& fan) {
    return wholeNumber(fan.min) + "–" + wholeNumber(fan.max) + " rpm";
}

std::string barText(double fraction) {
    constexpr std::size_t parts = 8;
    constexpr std::array<const char*, parts> partial{"", "▏", "▎", "▍", "▌", "▋", "▊", "▉"};
    if (!(fraction > 0))
        return {};
    const auto eighths = static_cast<std::size_t>(
        std::lround(std::min(fraction, 1.0) * static_cast<double>(barLength * parts)));
    std::string text;
    for (std::size_t i = 0; i < eighths / parts; ++i)
        text += "█";
    return text + partial[eighths % parts];
}

Table::Table(std::vector<Column> columns) : columns(std::move(columns)) {}

void Table::add(Row row) {
    precondition(row.size() == columns.size(), "a row has a cell for each column");
    for (std::string& cell : row)
        cell = printable(cell);
    rows.push_back(std::move(row));
}

void Table::print(std::ostream& out) const {
    auto widths = leastWidths();
    for (const Row& row : rows) {
        for (std::size_t i = 0; i < row.size(); ++i)
            widths[i] = std::max(widths[i], width(row[i]));
    }
    printLine(out, titles(), widths);
    for (const Row& row : rows)
        printLine(out, row, widths);
}

void Table::printTitles(std::ostream& out) const {
    printLine(out, titles(), leastWidths());
}

void Table::print(std::ostream& out, const Row& row) const {
    precondition(row.size() == columns.size(), "a row has a cell for each column");
    Row safe;
    std::ranges::transform(row, std::back_inserter(safe), printable);
    printLine(out, safe, leastWidths());
}

std::vector<std::size_t> Table::leastWidths() const {
    std::vector<std::size_t> widths;
    std::ranges::transform(columns, std::back_inserter(widths), [](const Column& column) {
        return std::max(column.leastWidth, width(column.title));
    });
    return widths;
}

void Table::printLine(std::ostream& out, const Row& row,
                      const std::vector<std::size_t>& widths) const {
    std::string line;
    for (std::size_t i = 0; i < row.size(); ++i) {
        const std::size_t length = width(row[i]);
        const std::string padding(widths[i] > length ? widths[i] - length : 0, ' ');
        if (i > 0)
            line += gap;
        line += columns[i].alignment == Alignment::right ? padding + row[i] : row[i] + padding;
    }
    line.erase(line.find_last_not_of(' ') + 1);
    out << line << '\n';
}

Table::Row Table::titles() const {
    Row row;
    for (const Column& column : columns)
        row.push_back(column.title);
    return row;
}

} // namespace tervale
