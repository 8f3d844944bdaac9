#include "TervaleWindow/Controls/SymbolLabel.h"

#include <QHBoxLayout>

namespace tervale {

namespace {
/// From the top of a line to that of a symbol that is level with its letters.
constexpr int dropToFirstLine = 2;
} // namespace

SymbolLabel::SymbolLabel(Symbol symbol, const QString& text, Foreground wanted, QWidget* parent)
    : QWidget(parent),
      symbolView(new SymbolView(symbol, symbolSide, wanted)),
      symbolColumn(new QVBoxLayout),
      label(new TextLabel(text, TextStyle::body(), wanted)) {
    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(spacing);
    symbolColumn->setContentsMargins(0, 0, 0, 0);
    symbolColumn->addWidget(symbolView);
    row->addLayout(symbolColumn);
    row->addWidget(label);
}

QString SymbolLabel::text() const {
    return label->text();
}

void SymbolLabel::setText(const QString& text) {
    label->setText(text);
}

void SymbolLabel::setSpokenText(const QString& text) {
    label->setAccessibleName(text);
}

void SymbolLabel::setForeground(const Foreground& wanted) {
    symbolView->setForeground(wanted);
    label->setForeground(wanted);
}

void SymbolLabel::setTextStyle(const TextStyle& style) {
    label->setTextStyle(style);
}

void SymbolLabel::setOverflow(Overflow overflow) {
    label->setOverflow(overflow);
    // Beside the first line, where there may be several.
    const bool wraps = overflow == Overflow::wrap;
    symbolColumn->setAlignment(symbolView, wraps ? Qt::AlignTop : Qt::Alignment());
    symbolColumn->setContentsMargins(0, wraps ? dropToFirstLine : 0, 0, 0);
}

} // namespace tervale
