#pragma once

#include "TervaleWindow/Gauges/ArcLayerView.h"
#include "TervaleWindow/Gauges/FanDialLayout.h"
#include "TervaleWindow/Gauges/Gauge.h"

#include <QWidget>

namespace tervale {

/// A fan's speed on a round gauge between its limits, with a tick at its target. The dial is 190 x
/// 224 with room for the tick's overhang on three sides, and centred where the widget is wider. Its
/// owner names it for accessibility; it is "Fan" until then.
class FanDial : public QWidget, public Gauge {
    Q_OBJECT

  public:
    /// Speeds in revolutions per minute. The limits must be finite.
    struct Value {
        double rpm = 0;
        double target = 0;
        double min = 0;
        double max = 0;
        /// The fan is under this utility's control.
        bool manual = false;

        double fill() const;
        double tickFraction() const;
        bool operator==(const Value&) const = default;
    };

    explicit FanDial(QWidget* parent = nullptr);

    void set(const Value& value);
    const Value& value() const { return lastValue; }
    const FanDialTexts& texts() const { return writtenTexts; }
    const ArcLayerView& arc() const { return *arcView; }

    /// Such as "1732 rpm, Set by Tervale".
    QString reading() const override;
    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }

  protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

  private:
    QRect square() const;
    FanDialLayout layoutOfTexts() const;
    void write(const FanDialTexts& texts);

    Value lastValue;
    FanDialTexts writtenTexts;
    ArcLayerView* arcView;
};

} // namespace tervale
