#include "TervaleWindow/Gauges/FanDial.h"

#include "Base/Precondition.h"
#include "TervaleWindow/Gauges/GaugeMath.h"

#include <QLocale>
#include <QPaintEvent>

#include <cmath>

namespace tervale {

namespace {

/// Halves go to the even number, as the platform's own formatters round; the toolkit's rounds up.
double toWholeNumber(double value) {
    return std::nearbyint(value);
}

FanDialTexts textsOf(const FanDial::Value& value) {
    return {.number = QLocale().toString(toWholeNumber(value.rpm), 'f', 0),
            .minimum = QString::number(truncatedToInteger(value.min)),
            .maximum = QString::number(truncatedToInteger(value.max)),
            .capsule = value.manual ? "Set by Tervale" : "Controlled by macOS",
            .manual = value.manual};
}

} // namespace

double FanDial::Value::fill() const {
    return fractionOf(rpm, {min, max});
}

double FanDial::Value::tickFraction() const {
    return fractionOf(target, {min, max});
}

FanDial::FanDial(QWidget* parent)
    : QWidget(parent),
      writtenTexts(textsOf({})),
      arcView(new ArcLayerView(this)) {
    setAccessibleName("Fan");
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
}

void FanDial::set(const Value& value) {
    const FanDialTexts texts = textsOf(value);
    const QString before = reading();
    lastValue = value;
    write(texts);
    arcView->set(value.fill(), value.tickFraction());
    if (reading() != before)
        tellReading(*this);
}

// Only what reads differently now is painted again.
void FanDial::write(const FanDialTexts& texts) {
    const FanDialTexts before = writtenTexts;
    const FanDialLayout layoutBefore = layoutOfTexts();
    writtenTexts = texts;
    if (texts.number != before.number)
        update(layoutBefore.number.toAlignedRect());
    if (texts.minimum != before.minimum || texts.maximum != before.maximum)
        update(layoutBefore.limits.toAlignedRect());
    if (texts.capsule != before.capsule)
        update((layoutBefore.capsule | layoutOfTexts().capsule).toAlignedRect());
}

QRect FanDial::square() const {
    return {(width() - FanDialLayout::side) / 2, ArcLayout::overhang, FanDialLayout::side,
            FanDialLayout::side};
}

FanDialLayout FanDial::layoutOfTexts() const {
    return fanDialLayout(square(), fanDialMetrics(writtenTexts));
}

void FanDial::paintEvent(QPaintEvent* event) {
    QPainter painter(this);
    paintFanDial(painter, layoutOfTexts(), writtenTexts, Colors::of(palette()), event->region());
}

void FanDial::resizeEvent(QResizeEvent* event) {
    const int margin = ArcLayout::overhang;
    arcView->setGeometry(square().adjusted(-margin, -margin, margin, margin));
    QWidget::resizeEvent(event);
}

QString FanDial::reading() const {
    return QString("%1 rpm, %2")
        .arg(toWholeNumber(lastValue.rpm), 0, 'f', 0)
        .arg(writtenTexts.capsule);
}

QSize FanDial::sizeHint() const {
    return {FanDialLayout::side + 2 * ArcLayout::overhang,
            ArcLayout::overhang + FanDialLayout::side + FanDialLayout::blockMargin +
                FanDialLayout::bottomMargin};
}

} // namespace tervale
