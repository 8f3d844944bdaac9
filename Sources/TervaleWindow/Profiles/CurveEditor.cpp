#include "TervaleWindow/Profiles/CurveEditor.h"

#include "TervaleWindow/Controls/TextLabel.h"
#include "TervaleWindow/Controls/TightLayout.h"
#include "TervaleWindow/Profiles/CurveCanvas.h"
#include "TervaleWindow/Profiles/CurveDrawing.h"

#include <QVBoxLayout>

namespace tervale {

namespace {

TextLabel* caption(const QString& text, QWidget* parent) {
    return new TextLabel(text, TextStyle::caption(), TextColor::secondary, parent);
}

} // namespace

CurveEditor::CurveEditor(ClosedRange range, const QString& unit, PlotInsets inset, QWidget* parent)
    : QWidget(parent) {
    // Made in the order in which they are read.
    auto* speedCaption = caption(tr("Fan speed"), this);
    plot = new CurveCanvas(range, unit, inset, this);
    auto* unitCaption =
        caption(isLoadUnit(unit.toStdString()) ? tr("Load") : tr("Temperature"), this);
    auto* help = caption(tr("Drag a point to move it. Click empty space to add one, double-click a "
                            "point to remove it."),
                         this);
    help->setOverflow(Overflow::wrap);

    auto* layout = tightLayout<QVBoxLayout>(this);
    layout->addWidget(speedCaption);
    layout->addSpacing(5);
    layout->addWidget(plot);
    layout->addSpacing(4);
    layout->addWidget(unitCaption, 0, Qt::AlignRight);
    layout->addSpacing(6);
    layout->addWidget(help);
}

} // namespace tervale
