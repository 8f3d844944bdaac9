#pragma once

#include "Profiles/Bridge.h"
#include "TervaleWindow/Controls/Card.h"
#include "TervaleWindow/Model/Model.h"

#include <QBoxLayout>

#include <utility>
#include <vector>

class QPushButton;

namespace tervale {

class TabularLabel;
class FractionSlider;
class MenuButton;
class ModeButton;
class PopUpButton;
class TimerLabel;

/// Every way to change what drives the fans. Each control sends one command; what is shown as
/// chosen is only what the agent confirmed.
class ControlsPanel final : public Card {
    Q_OBJECT

  public:
    /// Both outlive the panel.
    ControlsPanel(Model& model, Bridge& bridge, QWidget* parent = nullptr);

  private:
    QLayout* makeModeRow();
    QLayout* makeSliderRow();
    QWidget* makeProfileRow();
    QWidget* makeTimerRow();

    void select(const Action& action);
    void selectProfile(int entry);
    void setEditingSlider(bool editing);

    void updateModes();
    void updateSlider();
    void updateProfiles();
    void updateChosenProfile();
    void updateTimer();
    void updateTimerMenu();

    Model& model;
    Bridge& bridge;
    bool editingSlider = false;
    std::vector<std::pair<ModeButton*, Action>> modes;
    FractionSlider* slider = nullptr;
    TabularLabel* sliderFigure = nullptr;
    QWidget* profileRow = nullptr;
    PopUpButton* profilePicker = nullptr;
    MenuButton* timerMenu = nullptr;
    QWidget* timerRunning = nullptr;
    QPushButton* cancelButton = nullptr;
    TimerLabel* timerLabel = nullptr;
};

} // namespace tervale
