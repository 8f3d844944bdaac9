#pragma once

#include <QComboBox>

namespace tervale {

/// A button that shows the chosen entry and opens a list of all, the chosen one ticked. It takes
/// the width of its longest entry, at least 130, and shortens a name with an ellipsis where it is
/// given less. Space, Return, Up and Down open the list, and
/// Space and Return choose in it. Only the user's choice emits `activated`;
/// `setCurrentIndex` never does.
class PopUpButton : public QComboBox {
    Q_OBJECT

  public:
    static constexpr int minimumContentWidth = 130;

    explicit PopUpButton(QWidget* parent = nullptr);

    bool eventFilter(QObject* watched, QEvent* event) override;
    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

  protected:
    void keyPressEvent(QKeyEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
};

} // namespace tervale
