#pragma once

#include "TervaleWindow/Sensors/SensorCatalog.h"

#include <QWidget>

#include <optional>
#include <vector>

namespace tervale {

class SensorSectionCard;
class TextLabel;

/// The sections one below the other, or a line that says why there are none. One stop for the Tab
/// key; the arrows, Page Up and Down, Home and End go from row to row through all sections.
class SensorList final : public QWidget {
    Q_OBJECT

  public:
    explicit SensorList(QWidget* parent = nullptr);

    /// One section for each group. `reason` is shown when none of them has a row.
    void setSections(std::vector<SensorSection> sections, const QString& reason);
    /// The sensor that the keyboard is at.
    const std::optional<TemperatureSensor>& current() const { return currentSensor; }

  signals:
    /// The keyboard came to a row of `card`.
    void rowReached(const QWidget& card, const QRect& row);

  protected:
    void keyPressEvent(QKeyEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;

  private:
    int rowCount() const;
    /// Counted through all sections.
    std::optional<int> currentIndex() const;
    int rowsOnScreen() const;
    void goTo(int index);
    void showCurrent();
    void tellCurrent();

    std::vector<SensorSectionCard*> cards;
    TextLabel* emptyLabel;
    std::optional<TemperatureSensor> currentSensor;
};

} // namespace tervale
