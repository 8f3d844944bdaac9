#pragma once

#include <QList>
#include <QPushButton>

namespace tervale {

enum class Selection { unselected, selected };

/// A capsule with a text. A click says that it is wanted; whether it is selected is only ever set
/// from outside. Assistive technology sees a radio button, and the selection as its checked state;
/// and as radio buttons, those beside one another are one stop of the Tab key: the one that has the
/// focus, else the selected one, else the first.
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
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void nextCheckState() override;
    void paintEvent(QPaintEvent* event) override;

  private:
    /// Those beside it and itself.
    QList<ModeButton*> row() const;
    void settleTabStop();
};

} // namespace tervale
