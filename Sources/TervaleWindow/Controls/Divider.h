#pragma once

#include <QWidget>

namespace tervale {

/// A hairline between rows or columns.
class Divider : public QWidget {
    Q_OBJECT

  public:
    explicit Divider(Qt::Orientation orientation = Qt::Horizontal, QWidget* parent = nullptr);

  protected:
    void paintEvent(QPaintEvent* event) override;
};

} // namespace tervale
