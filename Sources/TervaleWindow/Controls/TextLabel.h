#pragma once

#include "TervaleWindow/Controls/TextStyle.h"

#include <QLabel>

#include <array>
#include <cstddef>
#include <optional>
#include <utility>

namespace tervale {

/// Plain text in one of the window's text styles, in a colour that follows the palette.
class TextLabel : public QLabel {
    Q_OBJECT

  public:
    explicit TextLabel(const QString& text, const TextStyle& style = TextStyle::body(),
                       Foreground wanted = TextColor::label, QWidget* parent = nullptr);

    void setForeground(const Foreground& wanted);
    void setTextStyle(const TextStyle& style);
    void setOverflow(Overflow overflow);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;
    bool hasHeightForWidth() const override;
    int heightForWidth(int width) const override;

  protected:
    void paintEvent(QPaintEvent* event) override;

  private:
    /// What is known of the size of a text in a font.
    struct Measured {
        QString text;
        QFont font;
        std::optional<int> width{};
        /// The last widths that were asked for, and the lines that the text breaks into; a width of
        /// -1 is none.
        std::array<std::pair<int, int>, 4> lines{{{-1, 0}, {-1, 0}, {-1, 0}, {-1, 0}}};
        std::size_t next = 0;
    };

    int naturalWidth() const;
    Measured& measured() const;

    TextStyle setting;
    Foreground foreground;
    Overflow whenTooWide = Overflow::demand;
    mutable std::optional<Measured> lastMeasured;
};

} // namespace tervale
