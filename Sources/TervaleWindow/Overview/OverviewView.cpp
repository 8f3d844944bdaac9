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

} // namespace

OverviewView::OverviewView(Model& model, Bridge& bridge, QWidget* parent)
    : PaneFrame(QStringLiteral("Overview"), parent) {
    addPanel(makeWaitingLabel(model));
    addPanel(new FansPanel(model));
    addPanel(new ControlsPanel(model, bridge));
    addPanel(new TemperaturesPanel(model));
}

} // namespace tervale
