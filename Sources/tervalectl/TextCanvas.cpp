#include "tervalectl/TextCanvas.h"

#include <array>
#include <cmath>
#include <cstddef>
#include <utility>

namespace tervale {

namespace {

constexpr int brailleAcross = 2;
constexpr int brailleDown = 4;
/// The bit of each dot, by row and column: the lowest row came last.
constexpr std::array<std::array<std::uint8_t, brailleAcross>, brailleDown> brailleBits{
    {{0x01, 0x08}, {0x02, 0x10}, {0x04, 0x20}, {0x40, 0x80}}};

/// U+2800 and what follows it.
std::string braille(std::uint8_t dots) {
    return {'\xE2', static_cast<char>(0xA0U | (dots >> 6U)),
            static_cast<char>(0x80U | (dots & 0x3FU))};
}

/// The nearest of the six by six by six colours that every such terminal has.
long paletteColor(const SRGB& color) {
    const auto step = [](double component) { return std::lround(component * 5); };
    return 16 + 36 * step(color.red) + 6 * step(color.green) + step(color.blue);
}

/// The length of the character that the text begins with.
std::size_t characterLength(std::string_view text) {
    std::size_t length = 1;
    while (length < text.size() && (static_cast<unsigned char>(text[length]) & 0xC0U) == 0x80U)
        ++length;
    return length;
}

} // namespace

int nearest(double place) {
    return static_cast<int>(std::lround(place));
}

std::string beginColor(const SRGB& color, TextStyle::Colors colors) {
    switch (colors) {
    case TextStyle::Colors::none:
        return {};
    case TextStyle::Colors::palette:
        return "\x1b[38;5;" + std::to_string(paletteColor(color)) + 'm';
    case TextStyle::Colors::all:
        break;
    }
    const std::uint32_t number = color.number();
    return "\x1b[38;2;" + std::to_string(number >> 16U) + ';' +
           std::to_string(number >> 8U & 0xFFU) + ';' + std::to_string(number & 0xFFU) + 'm';
}

std::string endColor(TextStyle::Colors colors) {
    return colors == TextStyle::Colors::none ? "" : "\x1b[39m";
}

TextCanvas::TextCanvas(int columns, int rows, const TextStyle& style)
    : columns(columns),
      rows(rows),
      style(style),
      acrossCell(style.unicode ? brailleAcross : 1),
      downCell(style.unicode ? brailleDown : 1),
      cells(static_cast<std::size_t>(columns) * static_cast<std::size_t>(rows)) {}

TextCanvas::Cell* TextCanvas::cell(int column, int row) {
    if (column < 0 || row < 0 || column >= columns || row >= rows)
        return nullptr;
    return &cells[indexOf(column, row)];
}

void TextCanvas::dot(int x, int y, std::optional<SRGB> color, char ascii) {
    if (x < 0 || y < 0)
        return;
    Cell* hit = cell(x / acrossCell, y / downCell);
    if (!hit)
        return;
    if (style.unicode) {
        const auto row = static_cast<std::size_t>(y % brailleDown);
        hit->dots |= brailleBits.at(row).at(static_cast<std::size_t>(x % brailleAcross));
    } else {
        hit->text = ascii;
    }
    hit->color = color;
}

void TextCanvas::write(int column, int row, std::string_view text, std::optional<SRGB> color) {
    for (; !text.empty(); ++column) {
        const std::size_t length = characterLength(text);
        if (Cell* hit = cell(column, row))
            *hit = {.text = std::string(text.substr(0, length)), .color = color};
        text.remove_prefix(length);
    }
}

std::vector<std::string> TextCanvas::lines() const {
    std::vector<std::string> lines;
    for (int row = 0; row < rows; ++row) {
        std::string line;
        std::string blanks;
        std::optional<SRGB> current;
        for (int column = 0; column < columns; ++column) {
            const Cell& shown = cells[indexOf(column, row)];
            if (shown.dots == 0 && (shown.text.empty() || shown.text == " ")) {
                blanks += ' ';
                continue;
            }
            line += std::exchange(blanks, {});
            if (shown.color != current) {
                line +=
                    shown.color ? beginColor(*shown.color, style.colors) : endColor(style.colors);
                current = shown.color;
            }
            line += shown.text.empty() ? braille(shown.dots) : shown.text;
        }
        lines.push_back(line + (current ? endColor(style.colors) : ""));
    }
    return lines;
}

} // namespace tervale
