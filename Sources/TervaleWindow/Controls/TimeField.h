#pragma once

#include <QTimeEdit>

namespace tervale {

/// A time of day in hours and minutes, written as the user's locale does. Stepping a section
/// carries into the other one and past midnight. A click chooses a section, Left and Right the one
/// beside it, and what is typed replaces it. What was typed can be undone in the field until
/// Return is pressed or the focus leaves it.
class TimeField : public QTimeEdit {
    Q_OBJECT
    Q_PROPERTY(int minuteOfDay READ minuteOfDay WRITE setMinuteOfDay NOTIFY minuteOfDayChanged)

  public:
    static constexpr int minutesPerDay = 1440;

    explicit TimeField(QWidget* parent = nullptr);

    /// Minutes after midnight, 0 to 1439.
    int minuteOfDay() const;
    /// Shows another time without any signal. Anything outside 0 to 1439 is a programming error.
    void setMinuteOfDay(int minute);
    /// As the user does.
    void chooseMinuteOfDay(int minute);

    void stepBy(int steps) override;

  signals:
    /// The user typed or stepped to another time; once for each.
    void minuteOfDayChanged(int minute);

  protected:
    StepEnabled stepEnabled() const override;
    bool eventFilter(QObject* watched, QEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void changeEvent(QEvent* event) override;

  private:
    void followLocale();
    void announce();
    void endTyping();
    void selectCurrentSection();
    /// Goes to the next section, or the one before, as far as there is one.
    void chooseSection(int step);

    int announced = 0;
};

} // namespace tervale
