#pragma once

#include <QObject>

class QWidget;

namespace tervale {

/// Gives menus and pop-up lists their rounded corners.
class FloatingPanels : public QObject {
    Q_OBJECT

  public:
    /// Whether `widget` is the window of a menu or of a pop-up's list.
    static bool isPanel(const QWidget* widget);

    /// To be called before the widget has a native window.
    void prepare(QWidget* widget);

  protected:
    bool eventFilter(QObject* object, QEvent* event) override;
};

} // namespace tervale
