#pragma once

#include <QLineEdit>

class QAction;

namespace tervale {

/// A rounded field with a magnifier and, once there is text, a button to clear it. Escape clears.
class SearchField : public QLineEdit {
    Q_OBJECT

  public:
    explicit SearchField(const QString& prompt, QWidget* parent = nullptr);

    QSize sizeHint() const override;

  protected:
    void keyPressEvent(QKeyEvent* event) override;
    void changeEvent(QEvent* event) override;

  private:
    void nameButtons();
    void followPalette();

    QAction* magnifier;
};

} // namespace tervale
