#pragma once

#include "TervaleWindow/Appearance/Symbol.h"
#include "TervaleWindow/Model/Model.h"

#include <QString>
#include <QWidget>

namespace tervale {

class TabularLabel;
class SymbolView;

/// The first fan's speed and the CPU's average temperature; a row is there only while its figure
/// is. What the figures are of is in the tooltips and in their accessible names.
class SidebarSummary final : public QWidget {
    Q_OBJECT

  public:
    /// `model` outlives the summary.
    explicit SidebarSummary(Model& model, QWidget* parent = nullptr);

  protected:
    void paintEvent(QPaintEvent* event) override;

  private:
    struct Row {
        QWidget* widget;
        SymbolView* symbol;
        TabularLabel* figure;
        QString title;
    };

    Row addRow(Symbol symbol, const QString& title);
    static void showFigure(const Row& row, const QString& figure);
    void updateFan();
    void updateProcessor();

    Model& model;
    Row fan;
    Row processor;
};

} // namespace tervale
