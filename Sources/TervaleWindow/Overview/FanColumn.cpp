#include "TervaleWindow/Overview/FanColumn.h"

#include "TervaleWindow/Controls/TextLabel.h"
#include "TervaleWindow/Gauges/FanDial.h"

#include <QVBoxLayout>

namespace tervale {

FanColumn::FanColumn(QWidget* parent)
    : QWidget(parent), dial(new FanDial), number(new TextLabel({}, TextStyle::caption(), TextColor::secondary)) {
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    column->addWidget(dial);
    column->addWidget(number, 0, Qt::AlignHCenter);
}

void FanColumn::show(const Model::DisplayFan& fan, Caption caption) {
    const QString title = QStringLiteral("Fan %1").arg(fan.index + 1);
    dial->setAccessibleName(title);
    dial->set({fan.actual, fan.target, fan.min, fan.max, fan.manual});
    number->setText(title);
    number->setVisible(caption == Caption::number);
}

} // namespace tervale
