#pragma once

#include "TervaleWindow/Model/Model.h"
#include "TervaleWindow/Shell/Pane.h"

#include <QListWidget>
#include <QWidget>

#include <optional>

namespace tervale {

/// The column of panes to choose from, with the machine's state in short at its foot.
class Sidebar final : public QWidget {
    Q_OBJECT

  public:
    /// In logical pixels.
    static constexpr int width = 190;

    explicit Sidebar(Model& model, QWidget* parent = nullptr);

    void setSection(std::optional<Pane> section);

  signals:
    /// The user chose a pane.
    void sectionChosen(Pane pane);

  protected:
    void paintEvent(QPaintEvent* event) override;

  private:
    void tellChoice();

    QListWidget* list;
};

} // namespace tervale
