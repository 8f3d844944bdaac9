#pragma once

#include "TervaleWindow/Model/Model.h"

#include <QWidget>

namespace tervale {

/// The first fan's speed and the CPU's average temperature; a row is there only while its figure is.
class SidebarSummary final : public QWidget {
    Q_OBJECT

  public:
    /// `model` outlives the summary.
    explicit SidebarSummary(Model& model, QWidget* parent = nullptr);

    QSize sizeHint() const override;
    /// The rows as they are shown, such as "2893 rpm" and "58 °C".
    QStringList rows() const;

  protected:
    void paintEvent(QPaintEvent* event) override;
    void changeEvent(QEvent* event) override;

  private:
    struct Row {
        Symbol symbol;
        QString text;
        QColor color;
    };

    void update();

    Model& model;
    std::vector<Row> shownRows;
};

} // namespace tervale
