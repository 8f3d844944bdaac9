#include "TervaleWindow/Gauges/ArcLayerView.h"

#include <QPaintEvent>

namespace tervale {

ArcLayerView::ArcLayerView(QWidget* parent) : QWidget(parent), animation(*this) {
    setAttribute(Qt::WA_TransparentForMouseEvents);
    connect(&animation, &GaugeAnimation::advanced, this, &ArcLayerView::advance);
}

void ArcLayerView::set(double fill, double tick) {
    fillTransition = {shownState.fill, fill};
    tickTransition = {shownState.tick, tick};
    animation.begin(distance());
    // What cannot be approached is there at once.
    advance();
}

double ArcLayerView::distance() const {
    return arcDistance(layoutOfSquare(), {fillTransition.from, tickTransition.from},
                       {fillTransition.to, tickTransition.to});
}

void ArcLayerView::advance() {
    const double progress = animation.progress();
    const ArcState state{fillTransition.at(progress), tickTransition.at(progress)};
    const QRegion changed = arcRegion(layoutOfSquare(), shownState, state);
    shownState = state;
    if (!changed.isEmpty())
        update(changed);
}

ArcLayout ArcLayerView::layoutOfSquare() const {
    const int margin = ArcLayout::overhang;
    return arcLayout(rect().adjusted(margin, margin, -margin, -margin));
}

void ArcLayerView::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    paintArc(painter, layoutOfSquare(), shownState, Colors::of(palette()));
}

void ArcLayerView::hideEvent(QHideEvent* event) {
    animation.finish();
    QWidget::hideEvent(event);
}

} // namespace tervale
