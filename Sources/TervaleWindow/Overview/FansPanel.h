#pragma once

#include "TervaleWindow/Controls/Card.h"
#include "TervaleWindow/Model/Model.h"

#include <vector>

namespace tervale {

class FanColumn;

/// The dials of all fans, side by side. Empty without fans.
class FansPanel final : public Card {
    Q_OBJECT

  public:
    /// `model` outlives the panel.
    explicit FansPanel(Model& model, QWidget* parent = nullptr);

  private:
    void update();

    Model& model;
    std::vector<FanColumn*> columns;
};

} // namespace tervale
