#include "TervaleWindow/Overview/FanColumn.h"

#include "Profiles/DisplayText.h"
#include "TervaleWindow/Controls/Decoration.h"
#include "TervaleWindow/Controls/TextLabel.h"
#include "TervaleWindow/Gauges/FanDial.h"

namespace tervale {

namespace {
/// How far the caption reaches into the dial's margin, in logical pixels.
constexpr int captionOverlap = 4;
} // namespace

FanColumn::FanColumn(QWidget* parent)
    : QWidget(parent),
      dial(new FanDial(this)),
      number(new TextLabel({}, TextStyle::caption(), TextColor::secondary, this)) {
    // The dial has it for a name.
    markAsDecoration(*number);
}

void FanColumn::show(const Model::DisplayFan& fan, Caption caption) {
    const QString title = QString::fromStdString(displayText::fan(fan.index));
    // Every name that is given is told, and the dial tells of its reading itself.
    if (dial->accessibleName() != title)
        dial->setAccessibleName(title);
    dial->set({.rpm = fan.actual,
               .target = fan.target,
               .min = fan.min,
               .max = fan.max,
               .manual = fan.manual});
    if (number->text() != title)
        dial->setToolTip(tr("%1: the arc is its speed, the tick its target").arg(title));
    number->setText(title);
    number->setVisible(caption == Caption::number);
    arrange();
}

void FanColumn::arrange() {
    const QSize dialSize = dial->sizeHint();
    const QSize numberSize = number->sizeHint();
    dial->setGeometry({{0, 0}, dialSize});
    number->setGeometry(
        {{(dialSize.width() - numberSize.width()) / 2, dialSize.height() - captionOverlap},
         numberSize});
    const int numberHeight = number->isHidden() ? 0 : numberSize.height() - captionOverlap;
    setFixedSize(dialSize.width(), dialSize.height() + numberHeight);
}

} // namespace tervale
