#include "TervaleWindow/Shell/SidebarSummary.h"

#include "Base/Precondition.h"
#include "TervaleWindow/Appearance/Colors.h"
#include "TervaleWindow/Appearance/Fonts.h"
#include "TervaleWindow/Appearance/Format.h"
#include "TervaleWindow/Appearance/Theme.h"
#include "TervaleWindow/Controls/SymbolView.h"
#include "TervaleWindow/Controls/TabularLabel.h"

#include <QPainter>
#include <QVBoxLayout>

namespace tervale {

namespace {
constexpr qreal cornerRadius = 9;
}

SidebarSummary::SidebarSummary(Model& modelShown, QWidget* parent)
    : QWidget(parent),
      model(modelShown) {
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(10, 10, 10, 10);
    column->setSpacing(6);
    fan = addRow(Symbol::fan, tr("Fan %1").arg(1));
    processor = addRow(Symbol::cpu, tr("CPU, core average"));
    connect(&model, &Model::fansChanged, this, &SidebarSummary::updateFan);
    connect(&model, &Model::summaryChanged, this, &SidebarSummary::updateProcessor);
    updateFan();
    updateProcessor();
}

SidebarSummary::Row SidebarSummary::addRow(Symbol symbol, const QString& title) {
    const Row row{new QWidget, new SymbolView(symbol, 16),
                  new TabularLabel(roundedFont(fontSize::body, QFont::Medium)), title};
    row.widget->setToolTip(title);
    row.figure->setLineHeight(18);
    auto* parts = new QHBoxLayout(row.widget);
    parts->setContentsMargins(0, 0, 0, 0);
    parts->setSpacing(8);
    parts->addWidget(row.symbol);
    parts->addWidget(row.figure, 1);
    layout()->addWidget(row.widget);
    return row;
}

void SidebarSummary::showFigure(const Row& row, const QString& figure) {
    if (row.figure->text() == figure)
        return;
    row.figure->setText(figure);
    // The symbol, which tells people what the figure is of, is not spoken.
    row.figure->setAccessibleName(tr("%1, %2").arg(row.title, figure));
}

void SidebarSummary::updateFan() {
    fan.widget->setVisible(!model.fans().empty());
    if (!model.fans().empty())
        showFigure(fan,
                   QStringLiteral("%1 rpm").arg(truncatedToInteger(model.fans().front().actual)));
}

void SidebarSummary::updateProcessor() {
    const auto temperature = model.summary().at(TemperatureInput::averageOf(SensorGroup::cpu));
    processor.widget->setVisible(temperature.has_value());
    if (!temperature)
        return;
    showFigure(processor, celsius(*temperature));
    processor.figure->setForeground(ThermalColor{*temperature});
    processor.symbol->setForeground(Theme::thermal(*temperature));
}

void SidebarSummary::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(Colors::of(palette()).quaternary);
    painter.drawRoundedRect(rect(), cornerRadius, cornerRadius);
}

} // namespace tervale
