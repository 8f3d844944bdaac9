#pragma once

#include <QPushButton>

namespace tervale {

enum class Selection { unselected, selected };

/// A capsule with a text. A click says that it is wanted; whether it is selected is only ever set
/// from outside. Assistive technology sees the selection as its checked state.
class ModeButton : public QPushButton {
    Q_OBJECT

  public:
    explicit ModeButton(const QString& title, QWidget* parent = nullptr);

    bool isSelected() const;
    void setSelected(Selection selection);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

  protected:
    /// Left and Right go along the row of such buttons, and stop at its ends.
    void keyPressEvent(QKeyEvent* event) override;
    void nextCheckState() override;
    void paintEvent(QPaintEvent* event) override;
};

} // namespace tervale
