#pragma once

#include <QRect>

namespace tervale {

/// Where the parts of one row are.
struct SensorRowLayout {
    /// The whole row, with the hairline that is its topmost pixel.
    QRect row;
    QRect name;
    QRect bar;
    QRect value;

    bool operator==(const SensorRowLayout&) const = default;
};

/// The rows from `first` to before `end`.
struct RowRange {
    int first = 0;
    int end = 0;

    bool operator==(const RowRange&) const = default;
};

/// A section's header and, below it, its rows, all of one height, in logical pixels.
struct SensorSectionLayout {
    static constexpr int headerHeight = 27;
    static constexpr int rowHeight = 30;
    static constexpr int barHeight = 6;

    QRect contents;
    int rowCount = 0;
    Qt::LayoutDirection direction = Qt::LeftToRight;

    static int heightFor(int rowCount) { return headerHeight + rowCount * rowHeight; }

    /// The line of the header's text, which the title and the count share.
    QRect headerLine() const;
    SensorRowLayout row(int index) const;
    /// The bars of all rows.
    QRect barColumn() const;
    /// The rows that `area` touches.
    RowRange rowsIn(const QRect& area) const;
};

} // namespace tervale
