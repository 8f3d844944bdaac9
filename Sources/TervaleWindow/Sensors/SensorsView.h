#pragma once

#include "TervaleWindow/Controls/PaneFrame.h"
#include "TervaleWindow/Model/Model.h"
#include "TervaleWindow/Sensors/SensorCatalog.h"

namespace tervale {

class SearchField;
class SensorList;

/// Every temperature sensor with its reading, by group, and a filter. The model reads all sensors
/// only while the view is shown.
class SensorsView final : public PaneFrame {
    Q_OBJECT

  public:
    /// `model` outlives the view.
    explicit SensorsView(Model& model, QWidget* parent = nullptr);
    ~SensorsView() override;

    /// Takes the focus to the filter, ready to be typed anew.
    void find();

  protected:
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

  private:
    void appear();
    void disappear();
    void update();
    void filter();

    Model& model;
    SensorCatalog catalog;
    SearchField* search;
    SensorList* list;
    bool onScreen = false;
};

} // namespace tervale
