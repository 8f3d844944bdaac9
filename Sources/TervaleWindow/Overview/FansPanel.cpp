#include "TervaleWindow/Overview/FansPanel.h"

#include "TervaleWindow/Gauges/ArcLayout.h"
#include "TervaleWindow/Overview/CenteredFlowLayout.h"
#include "TervaleWindow/Overview/FanColumn.h"

namespace tervale {

namespace {

/// From one dial's circle to the next.
constexpr int dialSpacing = 56;

} // namespace

FansPanel::FansPanel(Model& modelShown, QWidget* parent) : Card(parent), model(modelShown) {
    setLayout(new CenteredFlowLayout(dialSpacing - 2 * ArcLayout::overhang, 14));
    setPadding({18, 14 - ArcLayout::overhang, 18, 10});
    connect(&model, &Model::fansChanged, this, &FansPanel::update);
    update();
}

void FansPanel::update() {
    const auto& fans = model.fans();
    while (columns.size() > fans.size()) {
        delete columns.back();
        columns.pop_back();
    }
    while (columns.size() < fans.size()) {
        columns.push_back(new FanColumn);
        layout()->addWidget(columns.back());
    }
    const auto caption = fans.size() > 1 ? FanColumn::Caption::number : FanColumn::Caption::none;
    for (std::size_t i = 0; i < fans.size(); ++i)
        columns[i]->show(fans[i], caption);
}

} // namespace tervale
