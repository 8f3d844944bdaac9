#pragma once

#include "TervaleWindow/Controls/SymbolView.h"
#include "TervaleWindow/Controls/TextLabel.h"

#include <QWidget>

class QVBoxLayout;

namespace tervale {

/// A symbol and a text beside it, in one colour.
class SymbolLabel : public QWidget {
    Q_OBJECT

  public:
    static constexpr int symbolSide = 15;
    static constexpr int spacing = 7;

    SymbolLabel(Symbol symbol, const QString& text, Foreground wanted = TextColor::label,
                QWidget* parent = nullptr);

    QString text() const;
    void setText(const QString& text);
    /// What assistive technology reads in place of the text.
    void setSpokenText(const QString& text);
    void setForeground(const Foreground& wanted);
    void setTextStyle(const TextStyle& style);
    void setOverflow(Overflow overflow);

  private:
    SymbolView* symbolView;
    QVBoxLayout* symbolColumn;
    TextLabel* label;
};

} // namespace tervale
