#include "TervaleWindow/Overview/TimerLabel.h"

#include <QEvent>

#include <algorithm>

namespace tervale {

namespace {
// The symbol, its distance, and the pixel that a text's own end takes.
constexpr int aroundText = SymbolLabel::symbolSide + SymbolLabel::spacing + 1;
} // namespace

TimerLabel::TimerLabel(QWidget* parent) : SymbolLabel(Symbol::timer, {}, TextColor::label, parent) {
    setOverflow(Overflow::elide);
}

void TimerLabel::show(const TimerLine& line) {
    if (line == whole)
        return;
    whole = line;
    // Where the line is shortened to the eye.
    setSpokenText(whole.text());
    updateGeometry();
    fit();
}

QSize TimerLabel::sizeHint() const {
    return {widthOf(whole.text()) + aroundText, SymbolLabel::sizeHint().height()};
}

QSize TimerLabel::minimumSizeHint() const {
    return {widthOf(fitted(0).text()) + aroundText, SymbolLabel::minimumSizeHint().height()};
}

void TimerLabel::resizeEvent(QResizeEvent* event) {
    SymbolLabel::resizeEvent(event);
    fit();
}

void TimerLabel::changeEvent(QEvent* event) {
    SymbolLabel::changeEvent(event);
    if (event->type() == QEvent::FontChange)
        fit();
}

int TimerLabel::widthOf(const QString& text) const {
    return QFontMetrics(TextStyle::body().font).horizontalAdvance(text);
}

TimerLine TimerLabel::fitted(int room) const {
    const QFontMetrics metrics(TextStyle::body().font);
    const int least = widthOf(QStringLiteral("MMM…"));
    const int first = widthOf(whole.runs);
    const int second = widthOf(whole.follows);
    TimerLine rest = whole;
    rest.runs.clear();
    rest.follows.clear();
    const int forNames = room - widthOf(rest.text());
    if (first + second <= forNames)
        return whole;
    // The shorter one stays whole while it takes no more than half.
    const int half = forNames / 2;
    const int forFirst = first <= half ? first : std::max(half, forNames - second);
    const int forSecond = forNames - std::min(first, forFirst);
    TimerLine shown = whole;
    shown.runs = metrics.elidedText(whole.runs, Qt::ElideRight, std::max(forFirst, least));
    shown.follows = metrics.elidedText(whole.follows, Qt::ElideRight, std::max(forSecond, least));
    return shown;
}

void TimerLabel::fit() {
    const TimerLine shown = fitted(width() - aroundText);
    setText(shown.text());
    setToolTip(shown == whole ? QString()
                              : QStringLiteral("<p>%1</p>").arg(whole.text().toHtmlEscaped()));
}

} // namespace tervale
