#pragma once

#include "TervaleWindow/Controls/TextStyle.h"

#include <QLabel>

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
    int naturalWidth() const;

    TextStyle setting;
    Foreground foreground;
    Overflow whenTooWide = Overflow::demand;
};

} // namespace tervale
