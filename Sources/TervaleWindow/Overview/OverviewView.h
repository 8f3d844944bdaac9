#pragma once

#include "Profiles/Bridge.h"
#include "TervaleWindow/Controls/PaneFrame.h"
#include "TervaleWindow/Model/Model.h"

namespace tervale {

/// The window's main page: the fans, what drives them and every way to change that, and the
/// temperatures. Changes nothing itself but sends commands.
class OverviewView final : public PaneFrame {
    Q_OBJECT

  public:
    /// Both outlive the view.
    OverviewView(Model& model, Bridge& bridge, QWidget* parent = nullptr);
};

} // namespace tervale
