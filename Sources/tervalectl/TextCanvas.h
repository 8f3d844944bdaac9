#pragma once

#include "Base/ThemeColors.h"
#include "tervalectl/TextStyle.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tervale {

/// A drawing of characters: dots of Braille, two by four in each, or one of ASCII. Places are
/// reckoned in dots, from the upper left; whatever lies outside is left out.
class TextCanvas {
  public:
    TextCanvas(int columns, int rows, const TextStyle& style);

    int dotsAcross() const { return columns * acrossCell; }
    int dotsDown() const { return rows * downCell; }

    /// A dot; in a character, the last one's colour holds.
    void dot(int x, int y, std::optional<SRGB> color, char ascii = '*');
    /// From one place to another; `colorAt` tells the colour for each height.
    template <class ColorAt>
    void line(int fromX, int fromY, int toX, int toY, ColorAt colorAt, char ascii = '*');
    /// Characters in place of dots, from this column on. Each must be as wide as one.
    void write(int column, int row, std::string_view text, std::optional<SRGB> color = {});

    /// One line a row, without what is blank at its end, and with its colours where there are any.
    std::vector<std::string> lines() const;

  private:
    struct Cell {
        std::uint8_t dots = 0;
        /// A character in place of the dots.
        std::string text{};
        std::optional<SRGB> color{};
    };
    std::size_t indexOf(int column, int row) const {
        return static_cast<std::size_t>(row) * static_cast<std::size_t>(columns) +
               static_cast<std::size_t>(column);
    }
    Cell* cell(int column, int row);

    int columns;
    int rows;
    TextStyle style;
    int acrossCell;
    int downCell;
    std::vector<Cell> cells;
};

/// The whole number nearest to this one, as places and labels are.
int nearest(double place);

/// What a picture's labels take at its left, with a blank beside the plot.
inline constexpr int labelColumns = 7;

/// What has a terminal write in the colour from here on, and in its own again; empty where it has
/// no colours.
std::string beginColor(const SRGB& color, TextStyle::Colors colors);
std::string endColor(TextStyle::Colors colors);

template <class ColorAt>
void TextCanvas::line(int fromX, int fromY, int toX, int toY, ColorAt colorAt, char ascii) {
    const int across = toX - fromX;
    const int down = toY - fromY;
    const int steps = std::max({std::abs(across), std::abs(down), 1});
    for (int i = 0; i <= steps; ++i) {
        const int y = fromY + (down * i + (down < 0 ? -steps : steps) / 2) / steps;
        dot(fromX + across * i / steps, y, colorAt(y), ascii);
    }
}

} // namespace tervale
