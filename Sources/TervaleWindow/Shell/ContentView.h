#pragma once

#include "Profiles/Bridge.h"
#include "TervaleWindow/Model/Model.h"
#include "TervaleWindow/Shell/Pane.h"

#include <QPointer>
#include <QWidget>

#include <optional>

class QHBoxLayout;

namespace tervale {

class Sidebar;

/// The window's content: the sidebar, and beside it the pane that is chosen there. A pane is made
/// anew each time it is shown, so that it starts with a fresh state.
class ContentView final : public QWidget {
    Q_OBJECT

  public:
    /// `model` and `bridge` outlive the view, which shows this section first and makes no other.
    ContentView(Model& model, Bridge& bridge, std::optional<Pane> section = Pane::overview,
                QWidget* parent = nullptr);

    std::optional<Pane> section() const { return shown; }
    /// Without a section the Overview is shown.
    void setSection(std::optional<Pane> section);
    /// The pane on screen.
    QWidget* detail() const { return pane; }

  signals:
    /// Another pane is on screen.
    void sectionShown();

  private:
    QWidget* makePane(Pane kind);

    Model& model;
    Bridge& bridge;
    std::optional<Pane> shown;
    Sidebar* sidebar;
    QHBoxLayout* columns;
    QWidget* pane = nullptr;
};

} // namespace tervale
