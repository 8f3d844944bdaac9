#pragma once

#include "TervaleWindow/Appearance/Symbol.h"

#include <QPushButton>

namespace tervale {

/// A symbol without a border that can be clicked. Give it a menu with `setMenu`, and it opens that.
class SymbolButton : public QPushButton {
    Q_OBJECT

  public:
    /// `name` is its tool tip and what assistive technology calls it.
    SymbolButton(Symbol symbol, const QString& name, QWidget* parent = nullptr);

    /// By how much one at the end of a line goes beyond it, so that its symbol ends with the line.
    static QMargins overhang();

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

  protected:
    void paintEvent(QPaintEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

  private:
    Symbol drawing;
};

} // namespace tervale
