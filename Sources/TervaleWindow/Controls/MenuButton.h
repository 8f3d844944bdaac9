#pragma once

#include <QPushButton>

class QMenu;

namespace tervale {

/// A button that looks as a PopUpButton does and opens a menu, also by Space, Return, Up and Down.
class MenuButton : public QPushButton {
    Q_OBJECT

  public:
    static constexpr int leastWidth = 90;

    /// The menu becomes the button's child.
    MenuButton(const QString& title, QMenu* menu, QWidget* parent = nullptr);

    QSize sizeHint() const override;

  protected:
    void keyPressEvent(QKeyEvent* event) override;
};

} // namespace tervale
