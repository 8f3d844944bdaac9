#pragma once

#include "TervaleWindow/Controls/SymbolLabel.h"
#include "TervaleWindow/Overview/FanChoices.h"

namespace tervale {

/// The line on a running timer. Where it has no room for the whole, the names give way to the time
/// between them, and a tooltip has them whole.
class TimerLabel final : public SymbolLabel {
    Q_OBJECT

  public:
    explicit TimerLabel(QWidget* parent = nullptr);

    void show(const TimerLine& line);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

  protected:
    void resizeEvent(QResizeEvent* event) override;
    void changeEvent(QEvent* event) override;

  private:
    int widthOf(const QString& text) const;
    /// The names shortened until the line takes no more than `room` logical pixels, if it can.
    TimerLine fitted(int room) const;
    void fit();

    TimerLine whole;
};

} // namespace tervale
