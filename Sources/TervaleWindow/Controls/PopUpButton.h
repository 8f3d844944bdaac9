#pragma once

#include <QComboBox>

namespace tervale {

/// A button that shows the chosen entry and opens a list of all, the chosen one ticked. It takes
/// the width of its longest entry, at least 130, and shortens a name with an ellipsis where it is
/// given less. Space, Return, Up, Down and letters open the list, and Space and Return choose in
/// it; nothing is chosen while it is closed, neither by a key nor by the wheel. Only the user's
/// choice emits `activated`; `setCurrentIndex` never does.
class PopUpButton : public QComboBox {
    Q_OBJECT

  public:
    static constexpr int minimumContentWidth = 130;

    explicit PopUpButton(QWidget* parent = nullptr);

    /// The width at which an entry is shown whole.
    int widthFor(const QString& entry) const;

    bool eventFilter(QObject* watched, QEvent* event) override;
    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

  protected:
    /// A letter opens the list and goes to the entry that begins with it.
    void keyPressEvent(QKeyEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;

  private:
    void openAndSearch(QKeyEvent& letter);
};

} // namespace tervale
