#include "TervaleWindow/Overview/OverviewView.h"

#include "TervaleWindow/Controls/SymbolLabel.h"
#include "TervaleWindow/Overview/ControlsPanel.h"
#include "TervaleWindow/Overview/FansPanel.h"
#include "TervaleWindow/Overview/TemperaturesPanel.h"

namespace tervale {

namespace {

QWidget* makeWaitingLabel(Model& model) {
    auto* label = new SymbolLabel(Symbol::exclamationTriangle,
                                  QStringLiteral("Waiting for Tervale in the menu bar…"),
                                  TextColor::secondary);
    label->setVisible(!model.connected());
    QObject::connect(&model, &Model::connectedChanged, label, [label] { label->hide(); });
    return label;
}

/// Without fans there is nothing to put a card around.
QWidget* makeFansPanel(Model& model) {
    auto* panel = new FansPanel(model);
    const auto update = [panel, &model] { panel->setVisible(!model.fans().empty()); };
    QObject::connect(&model, &Model::fansChanged, panel, update);
    if (model.fans().empty())
        panel->hide();
    return panel;
}

} // namespace

OverviewView::OverviewView(Model& model, Bridge& bridge, QWidget* parent)
    : PaneFrame(QStringLiteral("Overview"), parent) {
    addPanel(makeWaitingLabel(model));
    addPanel(makeFansPanel(model));
    addPanel(new ControlsPanel(model, bridge));
    addPanel(new TemperaturesPanel(model));
}

} // namespace tervale
