#pragma once

#include "TervaleWindow/Appearance/Symbol.h"
#include "TervaleWindow/Controls/TextStyle.h"

#include <QWidget>

namespace tervale {

/// One symbol in a square of its own. Decoration: assistive technology does not see it.
class SymbolView : public QWidget {
    Q_OBJECT

  public:
    /// `side` in logical pixels; `weight` scales the width of the symbol's lines.
    SymbolView(Symbol symbol, int side, Foreground wanted = TextColor::label,
               QWidget* parent = nullptr);

    void setSymbol(Symbol symbol);
    void setForeground(const Foreground& wanted);
    void setWeight(qreal weight);

  protected:
    void paintEvent(QPaintEvent* event) override;

  private:
    Symbol drawing;
    Foreground foreground;
    qreal weightOfLines = 1;
};

} // namespace tervale
