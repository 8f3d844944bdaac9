#pragma once

#include "TervaleWindow/Profiles/CurvePlot.h"

#include <QString>
#include <QWidget>

namespace tervale {

class CurveCanvas;

/// The plot of a curve with the captions of its axes and a line of help.
class CurveEditor final : public QWidget {
    Q_OBJECT

  public:
    /// `unit` is "°C" on a temperature curve and "%" on a load curve.
    CurveEditor(ClosedRange range, const QString& unit, PlotInsets inset,
                QWidget* parent = nullptr);

    CurveCanvas& canvas() const { return *plot; }

  private:
    CurveCanvas* plot;
};

} // namespace tervale
