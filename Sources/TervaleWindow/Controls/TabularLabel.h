#pragma once

#include "TervaleWindow/Controls/TextStyle.h"

#include <QLabel>

namespace tervale {

/// One line of text in which all digits take the same width. `setAlignment` as for any label;
/// leading and trailing sides follow the layout's direction.
class TabularLabel : public QLabel {
    Q_OBJECT

  public:
    explicit TabularLabel(const QFont& font, Foreground wanted = TextColor::label,
                          QWidget* parent = nullptr);

    void setForeground(const Foreground& wanted);
    /// The line's height in logical pixels; without one, the font's own.
    void setLineHeight(int height);
    /// Whether a text that is too wide demands its width, as it does at first, or is shortened; the
    /// whole of it is then in the tooltip. It never wraps.
    void setOverflow(Overflow overflow);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

  protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

  private:
    bool isElided() const;

    Foreground foreground;
    int lineHeight = 0;
    Overflow whenTooWide = Overflow::demand;
};

} // namespace tervale
