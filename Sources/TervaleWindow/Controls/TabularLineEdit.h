#pragma once

#include <QLineEdit>

namespace tervale {

/// A line of text to be edited in which all digits take the same width, so that nothing moves while
/// a figure is stepped. Text that needs more than a cell a digit is set as in any other field.
class TabularLineEdit final : public QLineEdit {
    Q_OBJECT

  public:
    explicit TabularLineEdit(QWidget* parent = nullptr);

  protected:
    void paintEvent(QPaintEvent* event) override;
    void inputMethodEvent(QInputMethodEvent* event) override;

  private:
    /// Where the text stands.
    QRectF line() const;

    bool composing = false;
};

} // namespace tervale
