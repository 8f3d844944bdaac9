#pragma once

#include "Profiles/Bridge.h"
#include "TervaleWindow/Controls/PaneFrame.h"
#include "TervaleWindow/Model/Model.h"
#include "TervaleWindow/Settings/ApplicationMetadata.h"

class QHBoxLayout;

namespace tervale {

class SymbolButton;

/// The agent's own settings, the application's version and the safety rule. Changes nothing itself:
/// the agent is asked, and what is shown is what it has confirmed.
class SettingsView final : public PaneFrame {
    Q_OBJECT

  public:
    /// `model` and `bridge` outlive the view; `metadata` is read once.
    SettingsView(Model& model, Bridge& bridge, const ApplicationMetadata& metadata,
                 QWidget* parent = nullptr);

    /// Has a small button open a menu of these, where no menu bar does. They outlive the view.
    void offerHelp(const QList<QAction*>& entries);

  private:
    QWidget* makeLaunchPanel();
    QWidget* makeAboutPanel(const QString& version);

    Model& model;
    Bridge& bridge;
    QHBoxLayout* lastRow = nullptr;
    SymbolButton* help = nullptr;
};

} // namespace tervale
