#pragma once

#include "TervaleWindow/Profiles/KeyBurst.h"
#include "TervaleWindow/Profiles/ScheduleTargets.h"

#include <QWidget>

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <vector>

class QBoxLayout;

namespace tervale {

class TabularLabel;
class FractionSlider;
class PopUpButton;
class SymbolButton;
class TimeField;

/// One time window of a schedule: from, to, what runs, and a button to remove it. It shows what it
/// is told and says what the user wants.
class ScheduleRow final : public QWidget {
    Q_OBJECT

  public:
    enum class Arrangement { oneLine, tightLine, twoLines };

    explicit ScheduleRow(QWidget* parent = nullptr);

    /// Shows the window at `index` without any signal.
    void display(const ScheduleEditing& editing, std::size_t index,
                 std::span<const Profile> profiles);
    void setArrangement(Arrangement arrangement);
    /// The least width that the arrangement takes, whatever the window runs.
    int widthOf(Arrangement arrangement) const;
    void focusRemoveButton();

    QSize minimumSizeHint() const override;

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  signals:
    void timeChanged(tervale::ScheduleEditing::Edge edge, int minuteOfDay);
    void choiceChanged(const tervale::ScheduleEditing::Choice& choice);
    void speedChanged(double fraction);
    /// A time or a speed is complete; the next change is another one.
    void settled();
    void removeRequested();

  private:
    void layOut();
    void connectControls();
    bool beginsWith(const QKeyEvent& press, const QObject& control);
    void connectTime(TimeField* field, ScheduleEditing::Edge edge);
    /// So that each has a name of its own in the whole schedule.
    void nameControls(std::size_t number, std::size_t count);
    void showTargets(std::vector<ScheduleTarget> others);
    void showSpeed(const Action& action);
    std::optional<ScheduleEditing::Choice> choiceAt(int entry) const;
    int entryOf(const ScheduleEditing::Choice& choice) const;

    TimeField* start;
    TimeField* end;
    QWidget* run;
    PopUpButton* picker;
    FractionSlider* slider;
    TabularLabel* speed;
    SymbolButton* removeButton;
    QBoxLayout* runLine;
    QBoxLayout* firstLine;
    QBoxLayout* secondLine;
    /// Start and end as they are in the window, which may be outside the day.
    std::array<std::int64_t, 2> storedTimes{};
    /// The fixed speed as it is in the window, which may be out of range.
    double storedSpeed = 0;
    bool displaying = false;
    KeyBurst speedKeys;
    KeyBurst timeKeys;
    /// Whether the last key in a time stepped it, rather than typed.
    bool steppedTime = false;
    Arrangement arranged = Arrangement::oneLine;
    /// The picker's entries after the divider.
    std::vector<ScheduleTarget> targets;
};

} // namespace tervale
