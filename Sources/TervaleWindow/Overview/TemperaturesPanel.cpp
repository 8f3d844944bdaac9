#include "TervaleWindow/Overview/TemperaturesPanel.h"

#include "TervaleWindow/Appearance/Format.h"
#include "TervaleWindow/Controls/Decoration.h"
#include "TervaleWindow/Controls/TextLabel.h"
#include "TervaleWindow/Gauges/GaugeMath.h"
#include "TervaleWindow/Overview/TemperatureRow.h"

#include <QHBoxLayout>
#include <QVBoxLayout>

#include <algorithm>

namespace tervale {

namespace {

TextLabel* caption(const QString& text) {
    return new TextLabel(text, TextStyle::caption(), TextColor::secondary);
}

QLayout* makeHeader() {
    auto* heading = new TextLabel(QStringLiteral("Temperatures"), TextStyle::heading());
    auto* note = caption(
        QStringLiteral("CPU and GPU show the core average; other groups their hottest sensor"));
    note->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    note->setOverflow(Overflow::wrap);
    auto* row = new QHBoxLayout;
    row->addWidget(heading);
    row->addWidget(note, 1);
    return row;
}

QWidget* makeScale() {
    auto* scale = new QWidget;
    markAsDecoration(*scale);
    auto* row = new QHBoxLayout(scale);
    row->setContentsMargins(0, 0, 0, 0);
    row->addWidget(caption(celsius(thermalBarRange.lower)));
    row->addStretch(1);
    row->addWidget(caption(celsius(thermalBarRange.upper)));
    return scale;
}

} // namespace

TemperaturesPanel::TemperaturesPanel(Model& modelShown, QWidget* parent)
    : Card(parent),
      model(modelShown),
      scale(makeScale()) {
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(12);
    column->addLayout(makeHeader());
    auto* grid = new QGridLayout;
    column->addLayout(grid);
    grid->setHorizontalSpacing(14);
    grid->setVerticalSpacing(9);
    grid->setColumnMinimumWidth(0, 74);
    grid->setColumnMinimumWidth(2, 128);
    grid->setColumnStretch(1, 1);
    int place = 0;
    for (const SensorGroup group : SensorGroup::allCases)
        rows[group] = new TemperatureRow(group, *grid, place++);
    grid->addWidget(scale, place, 1);
    connect(&model, &Model::summaryChanged, this, &TemperaturesPanel::update);
    update();
}

void TemperaturesPanel::update() {
    const TemperatureReadings& summary = model.summary();
    for (const SensorGroup group : SensorGroup::allCases) {
        const auto hottest = TemperatureInput::averaged(group)
                                 ? summary.at(TemperatureInput::hottestOf(group))
                                 : std::nullopt;
        rows[group]->show(summary.at(TemperatureInput::headline(group)), hottest);
    }
    scale->setVisible(
        std::any_of(rows.begin(), rows.end(), [](const auto* row) { return row->isShown(); }));
}

} // namespace tervale
