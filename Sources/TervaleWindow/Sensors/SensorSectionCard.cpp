#include "TervaleWindow/Sensors/SensorSectionCard.h"

#include "TervaleWindow/Appearance/Format.h"
#include "TervaleWindow/Gauges/GaugeMath.h"
#include "TervaleWindow/Sensors/AccessibleSensorSection.h"
#include "TervaleWindow/Sensors/SensorSectionPainting.h"

#include <QHelpEvent>
#include <QPaintEvent>
#include <QToolTip>

#include <algorithm>

namespace tervale {

namespace {

constexpr QMargins padding{18, 12, 18, 6};

/// Where each row's bar goes from what it shows: a sensor that is new is there at once. Both
/// sections are in the order of their keys.
std::vector<Transition> transitions(const SensorSection& from,
                                    const std::vector<Transition>& fractions, double progress,
                                    const SensorSection& to) {
    std::vector<Transition> next;
    std::size_t old = 0;
    for (const SensorRow& row : to.rows) {
        const double target = fractionOf(row.value, thermalBarRange);
        while (old < from.rows.size() && from.rows[old].sensor.key < row.sensor.key)
            ++old;
        const bool stays = old < from.rows.size() && from.rows[old].sensor == row.sensor;
        next.push_back({stays ? fractions[old].at(progress) : target, target});
        if (stays)
            ++old;
    }
    return next;
}

} // namespace

SensorSectionCard::SensorSectionCard(SensorGroup group, QWidget* parent)
    : Card(parent),
      shown{group, {}},
      animation(*this) {
    // First of all: naming a widget already makes, and keeps, its description.
    registerAccessibleSensorSection();
    setPadding(padding);
    setAccessibleName(shown.title());
    connect(&animation, &GaugeAnimation::advanced, this, &SensorSectionCard::advance);
    hide();
}

void SensorSectionCard::setSection(SensorSection next) {
    if (next == shown)
        return;
    fractions = transitions(shown, fractions, animation.progress(), next);
    const SensorSection before = std::exchange(shown, std::move(next));
    const QMargins margins = contentsMargins();
    setFixedHeight(margins.top() + SensorSectionLayout::heightFor(rowCount()) + margins.bottom());
    setVisible(rowCount() > 0);
    update();
    const bool moves = std::any_of(fractions.begin(), fractions.end(),
                                   [](const Transition& bar) { return bar.from != bar.to; });
    if (moves)
        animation.begin(longestWay());
    else
        animation.stop();
    tellChange(before);
}

void SensorSectionCard::tellChange(const SensorSection& before) {
    if (before.rows.size() != shown.rows.size())
        tellSensorList(*this);
    else if (current && *current < rowCount())
        tellCurrentReading(*this);
}

void SensorSectionCard::setCurrentRow(std::optional<int> row) {
    if (row == current)
        return;
    current = row;
    update();
}

SensorSectionLayout SensorSectionCard::sectionLayout() const {
    return {contentsRect(), rowCount(), layoutDirection()};
}

double SensorSectionCard::shownLength(int row) const {
    return lengths(row).at(animation.progress());
}

Transition SensorSectionCard::lengths(int row) const {
    const Transition& fraction = fractions[static_cast<std::size_t>(row)];
    const double width = sectionLayout().row(row).bar.width();
    const double height = SensorSectionLayout::barHeight;
    return {litLength(fraction.from, width, height), litLength(fraction.to, width, height)};
}

double SensorSectionCard::longestWay() const {
    const RowRange seen = sectionLayout().rowsIn(visibleRegion().boundingRect());
    double longest = 0;
    for (int row = seen.first; row < seen.end; ++row)
        longest = std::max(longest, lengths(row).distance());
    return longest;
}

void SensorSectionCard::advance() {
    update(sectionLayout().barColumn() & visibleRegion().boundingRect());
}

bool SensorSectionCard::event(QEvent* event) {
    if (event->type() != QEvent::ToolTip)
        return Card::event(event);
    const auto& help = *static_cast<QHelpEvent*>(event);
    const SensorSectionLayout layout = sectionLayout();
    const RowRange here = layout.rowsIn({help.pos(), QSize(1, 1)});
    if (here.first < here.end) {
        const SensorRow& row = shown.rows[static_cast<std::size_t>(here.first)];
        QToolTip::showText(
            help.globalPos(),
            QStringLiteral("%1: %2, %3").arg(shown.title(), row.name, celsius(row.value)), this,
            layout.row(here.first).row);
    } else {
        QToolTip::hideText();
    }
    return true;
}

void SensorSectionCard::paintEvent(QPaintEvent* event) {
    Card::paintEvent(event);
    const Colors colors = Colors::of(palette());
    const SensorSectionLayout layout = sectionLayout();
    QPainter painter(this);
    // Names and figures read from the left, on whichever side they stand.
    painter.setLayoutDirection(Qt::LeftToRight);
    if (event->rect().intersects(layout.headerLine()))
        paintSensorHeader(painter, shown, layout, colors);
    const RowRange exposed = layout.rowsIn(event->rect());
    for (int row = exposed.first; row < exposed.end; ++row)
        paintSensorRow(
            painter, {shown.rows[static_cast<std::size_t>(row)], layout.row(row), shownLength(row)},
            colors, layout.direction, event->rect());
    if (current && *current < rowCount())
        paintCurrentRow(painter, layout.row(*current), colors);
}

void SensorSectionCard::hideEvent(QHideEvent* event) {
    animation.finish();
    Card::hideEvent(event);
}

} // namespace tervale
