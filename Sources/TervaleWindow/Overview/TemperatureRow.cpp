#include "TervaleWindow/Overview/TemperatureRow.h"

#include "Profiles/TemperatureInput.h"
#include "TervaleWindow/Appearance/Fonts.h"
#include "TervaleWindow/Appearance/Format.h"
#include "TervaleWindow/Controls/Decoration.h"
#include "TervaleWindow/Controls/TabularLabel.h"
#include "TervaleWindow/Controls/TextLabel.h"
#include "TervaleWindow/Controls/TightLayout.h"
#include "TervaleWindow/Gauges/ThermalBar.h"

#include <QVBoxLayout>

namespace tervale {

namespace {
constexpr int barHeight = 8;
}

TemperatureRow::TemperatureRow(SensorGroup group, QGridLayout& grid, int row)
    : QObject(grid.parentWidget()),
      title(new TextLabel({})),
      bar(new ThermalBar(barHeight)),
      figures(new QWidget),
      figure(new TabularLabel(roundedFont(17, QFont::DemiBold))),
      hottestFigure(new TabularLabel(systemFont(fontSize::caption), TextColor::secondary)) {
    const auto name = group.title();
    title->setText(QString::fromUtf8(name.data(), static_cast<qsizetype>(name.size())));
    // The bar is read with both.
    bar->setAccessibleName(title->text());
    const QString kind =
        TemperatureInput::averaged(group) ? tr("core average") : tr("hottest sensor");
    bar->setAccessibleDescription(kind);
    for (QWidget* part : {static_cast<QWidget*>(title), static_cast<QWidget*>(bar), figures})
        part->setToolTip(QStringLiteral("%1, %2").arg(title->text(), kind));
    hottestFigure->setToolTip(tr("%1, hottest core").arg(title->text()));
    markAsDecoration(*title);
    markAsDecoration(*figure);
    figure->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    hottestFigure->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    figure->setLineHeight(20);
    hottestFigure->setLineHeight(14);
    auto* column = tightLayout<QVBoxLayout>(figures);
    column->addWidget(figure);
    column->addWidget(hottestFigure);
    grid.addWidget(title, row, 0);
    grid.addWidget(bar, row, 1);
    grid.addWidget(figures, row, 2);
}

void TemperatureRow::show(std::optional<double> value, std::optional<double> hottest) {
    shown = value.has_value();
    title->setVisible(shown);
    bar->setVisible(shown);
    figures->setVisible(shown);
    if (!value)
        return;
    bar->setValue(*value);
    figure->setText(celsius(*value));
    figure->setForeground(ThermalColor{*value});
    hottestFigure->setVisible(hottest.has_value());
    if (hottest)
        showHottest(QStringLiteral("hottest core ") + celsius(*hottest));
}

void TemperatureRow::showHottest(const QString& text) {
    if (text == hottestFigure->text())
        return;
    // First, since a label without a name of its own tells of its text.
    hottestFigure->setAccessibleName(QStringLiteral("%1, %2").arg(title->text(), text));
    hottestFigure->setText(text);
}

} // namespace tervale
