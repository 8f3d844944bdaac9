#pragma once

#include "TervaleWindow/Profiles/ScheduleRow.h"

#include <QPointer>
#include <QWidget>

#include <span>
#include <vector>

class QAbstractScrollArea;

namespace tervale {

/// The rows of a schedule's windows, one below the other and of one height. Only those in sight,
/// their neighbours, the first and the last are made; a row that was made stays.
class ScheduleRows final : public QWidget {
    Q_OBJECT

  public:
    explicit ScheduleRows(QWidget* parent = nullptr);
    ~ScheduleRows() override;

    const std::vector<Window>& windows() const { return editing.windows; }
    /// As `ScheduleEditor::display`.
    void display(const std::vector<Window>& windows, std::span<const Profile> targets);
    /// What takes the focus of the last row that is removed.
    void setHeir(QWidget& widget) { heir = &widget; }

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

  signals:
    void edited(const tervale::WindowEdit& edit);
    /// As `ScheduleEditor::settled`.
    void settled();

  protected:
    void resizeEvent(QResizeEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

  private:
    ScheduleRow& rowAt(std::size_t index);
    ScheduleRow* makeRow(std::size_t index);
    std::size_t indexOf(const ScheduleRow* row) const;
    void removeWindow(ScheduleRow* row);
    void followScrolling();
    /// What can be seen of this widget, in its own coordinates, and what could be beside it.
    QRect sight() const;
    /// Makes what is in sight and puts all rows in their places.
    void showSight();
    void arrange();

    ScheduleEditing editing;
    std::vector<Profile> profiles;
    /// Null where a row was not needed yet.
    std::vector<ScheduleRow*> rows;
    QPointer<QWidget> heir;
    QPointer<QAbstractScrollArea> scrolledBy;
    /// Of each row, in logical pixels.
    int rowHeight = 0;
    /// To the layout around.
    QSize sizeTold;
};

} // namespace tervale
