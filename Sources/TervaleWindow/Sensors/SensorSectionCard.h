#pragma once

#include "TervaleWindow/Controls/Card.h"
#include "TervaleWindow/Gauges/GaugeAnimation.h"
#include "TervaleWindow/Sensors/SensorCatalog.h"
#include "TervaleWindow/Sensors/SensorSectionLayout.h"

#include <optional>

namespace tervale {

/// One group's sensors on a card. It draws its rows itself and only those that are on screen, so
/// that thousands of them cost no more than a few. Hidden without rows. A bar whose sensor stays in
/// the section moves to its new length; all move on one clock.
class SensorSectionCard final : public Card {
    Q_OBJECT

  public:
    explicit SensorSectionCard(SensorGroup group, QWidget* parent = nullptr);

    void setSection(SensorSection next);
    const SensorSection& section() const { return shown; }
    int rowCount() const { return static_cast<int>(shown.rows.size()); }

    /// The row that the keyboard is at, which gets a ring.
    void setCurrentRow(std::optional<int> row);
    std::optional<int> currentRow() const { return current; }

    SensorSectionLayout sectionLayout() const;
    /// How many pixels of the row's bar are lit on screen just now.
    double shownLength(int row) const;
    bool isAnimating() const { return animation.isRunning(); }

  protected:
    /// The tool tip of a row says what its bar and its figure are of.
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void hideEvent(QHideEvent* event) override;

  private:
    void advance();
    Transition lengths(int row) const;
    /// Of the bars that are on screen, in pixels.
    double longestWay() const;
    void tellChange(const SensorSection& before);

    SensorSection shown;
    /// Of each row's bar, from 0 to 1.
    std::vector<Transition> fractions;
    std::optional<int> current;
    GaugeAnimation animation;
};

} // namespace tervale
