#pragma once

#include <QList>
#include <QStringList>
#include <QWidget>

namespace tervale {

class SegmentButton;

/// A row of segments, one of which is selected. Left and Right move the selection. Assistive
/// technology sees a group of radio buttons.
class SegmentedPicker : public QWidget {
    Q_OBJECT

  public:
    explicit SegmentedPicker(const QStringList& titles, QWidget* parent = nullptr);

    int selected() const;
    /// Shows another selection without any signal.
    void setSelected(int index);
    QString title(int index) const;
    void setTitle(int index, const QString& title);

  signals:
    /// The user selected another segment.
    void chosen(int index);

  protected:
    void paintEvent(QPaintEvent* event) override;

  private:
    void choose(int index);
    /// Tab lands on the selected segment alone.
    void followSelectionByTab();

    QList<SegmentButton*> segments;
    int current = 0;
};

} // namespace tervale
