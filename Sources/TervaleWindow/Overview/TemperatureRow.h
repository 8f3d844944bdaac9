#pragma once

#include "SMC/Sensors.h"

#include <QGridLayout>
#include <QObject>
#include <QString>

#include <optional>

namespace tervale {

class TabularLabel;
class TextLabel;
class ThermalBar;

/// One sensor group in the grid of temperatures: its title, its bar, its figure, and for a group
/// that is shown by its average, the hottest sensor's figure under it.
class TemperatureRow final : public QObject {
    Q_OBJECT

  public:
    /// Puts the row into `grid`, whose widget owns the parts.
    TemperatureRow(SensorGroup group, QGridLayout& grid, int row);

    /// Degrees Celsius; without a value the row is hidden.
    void show(std::optional<double> value, std::optional<double> hottest);
    bool isShown() const { return shown; }

  private:
    void showHottest(const QString& text);

    bool shown = false;
    TextLabel* title;
    ThermalBar* bar;
    QWidget* figures;
    TabularLabel* figure;
    TabularLabel* hottestFigure;
};

} // namespace tervale
