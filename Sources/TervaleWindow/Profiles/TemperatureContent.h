#pragma once

#include "TervaleWindow/Profiles/CurvePlot.h"
#include "TervaleWindow/Profiles/ProfileContent.h"

class QGridLayout;

namespace tervale {

class CurveEditor;
class PopUpButton;
class SegmentedPicker;

/// The room around every curve's plot.
inline constexpr PlotInsets curveInsets{12, 40, 26, 14};

/// The form of a temperature curve: which reading it follows, and the curve with that reading's
/// current value.
class TemperatureContent final : public ProfileContent {
    Q_OBJECT

  public:
    TemperatureContent(Model& model, DraftOwner& draft, QWidget* parent = nullptr);

    /// The rows of the reading, for the form that the profile's name is in.
    void addRows(QGridLayout& form);
    void display() override;

  protected:
    void followEdit(const ProfileEdit& edit) override;

  private:
    void showInput();
    void showCurve();
    void showMarker();

    Model& model;
    PopUpButton* follow;
    SegmentedPicker* reading;
    CurveEditor* editor;
    /// The marker's reading, which comes when the profile may be selected no longer.
    TemperatureInput input;
};

} // namespace tervale
