#pragma once

#include "TervaleWindow/Appearance/Symbol.h"

#include <QPushButton>

namespace tervale {

/// A symbol without a border that can be clicked. Give it a menu with `setMenu`, and it opens that.
class SymbolButton : public QPushButton {
    Q_OBJECT

  public:
    /// On a ground it is a square around its symbol; without, no wider than the symbol, which gets
    /// darker instead.
    enum class Ground { square, none };

    /// `name` is its tool tip and what assistive technology calls it.
    SymbolButton(Symbol symbol, const QString& name, QWidget* parent = nullptr);

    void setGround(Ground ground);
    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

  protected:
    void paintEvent(QPaintEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

  private:
    Symbol drawing;
    Ground ground = Ground::square;
};

} // namespace tervale
