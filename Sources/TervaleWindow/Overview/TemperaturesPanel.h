#pragma once

#include "TervaleWindow/Controls/Card.h"
#include "TervaleWindow/Model/Model.h"

#include <QGridLayout>

#include <array>

namespace tervale {

class TemperatureRow;

/// The temperature of each sensor group that has one, as a figure and as a bar.
class TemperaturesPanel final : public Card {
    Q_OBJECT

  public:
    /// `model` outlives the panel.
    explicit TemperaturesPanel(Model& model, QWidget* parent = nullptr);

  private:
    void update();

    Model& model;
    std::array<TemperatureRow*, SensorGroup::allCases.size()> rows{};
    QWidget* scale;
};

} // namespace tervale
