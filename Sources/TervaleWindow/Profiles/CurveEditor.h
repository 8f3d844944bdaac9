#pragma once

#include "TervaleWindow/Profiles/CurvePlot.h"

#include <QString>
#include <QWidget>

#include <optional>

namespace tervale {

class CurveCanvas;

/// Edits a curve: its plot, the captions of the axes and a line of help.
class CurveEditor final : public QWidget {
    Q_OBJECT

  public:
    /// `unit` is "°C" on a temperature curve and "%" on a load curve.
    CurveEditor(ClosedRange range, const QString& unit, PlotInsets inset,
                QWidget* parent = nullptr);

    const Curve& curve() const;
    /// Shows another curve without any signal.
    void setCurve(const Curve& curve);
    /// The current input value, if it is known.
    void setMarker(std::optional<double> value);

  signals:
    /// The user changed it.
    void curveChanged(const tervale::Curve& curve);

  private:
    CurveCanvas* canvas;
};

} // namespace tervale
