#pragma once

#include <QLayout>

#include <memory>
#include <vector>

namespace tervale {

/// Lays its items out in reading order, in rows that are centred, and begins a new row where the
/// width ends.
class CenteredFlowLayout final : public QLayout {
  public:
    /// Distances in logical pixels.
    CenteredFlowLayout(int columnSpacing, int rowSpacing);
    ~CenteredFlowLayout() override;

    void addItem(QLayoutItem* item) override;
    int count() const override { return static_cast<int>(items.size()); }
    QLayoutItem* itemAt(int index) const override;
    QLayoutItem* takeAt(int index) override;
    Qt::Orientations expandingDirections() const override { return {}; }
    bool hasHeightForWidth() const override { return true; }
    int heightForWidth(int width) const override;
    QSize sizeHint() const override;
    QSize minimumSize() const override;
    void setGeometry(const QRect& rectangle) override;

  private:
    /// The places of all items within `rectangle`.
    std::vector<QRect> places(const QRect& rectangle) const;

    int columnSpacing;
    int rowSpacing;
    std::vector<std::unique_ptr<QLayoutItem>> items;
};

} // namespace tervale
