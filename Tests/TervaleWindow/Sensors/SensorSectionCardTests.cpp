#include "TervaleWindow/Appearance/Colors.h"
#include "TervaleWindow/Appearance/Theme.h"
#include "TervaleWindow/Sensors/SensorSectionCard.h"

#include <QTest>
#include <QVBoxLayout>

#include <gtest/gtest.h>

using namespace tervale;

namespace {

SensorRow row(const std::string& key, double value) {
    return {{key, SensorGroup::cpu}, QString::fromStdString("CPU " + key), value};
}

SensorSection section(std::vector<SensorRow> rows) {
    return {SensorGroup::cpu, std::move(rows)};
}

} // namespace

class SensorCard : public testing::Test {
  protected:
    void SetUp() override {
        window.setPalette(lightPalette());
        auto* column = new QVBoxLayout(&window);
        column->addWidget(&card);
        column->addStretch(1);
        window.resize(760, 400);
        window.show();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(&window));
    }
    void display(std::vector<SensorRow> rows) {
        card.setSection(section(std::move(rows)));
        QApplication::processEvents();
    }
    double barWidth() { return card.sectionLayout().row(0).bar.width(); }
    void advanceTo(double milliseconds) {
        card.findChild<GaugeAnimation*>()->advanceTo(milliseconds);
    }

    QWidget window;
    SensorSectionCard card{SensorGroup::cpu};
};

TEST_F(SensorCard, IsShownOnlyWithRows) {
    EXPECT_FALSE(card.isVisible());
    display({row("Tp01", 60)});
    EXPECT_TRUE(card.isVisible());
    display({});
    EXPECT_FALSE(card.isVisible());
}

TEST_F(SensorCard, IsAsHighAsItsRows) {
    display({row("Tp01", 60), row("Tp05", 60)});
    const int two = card.height();
    EXPECT_EQ(card.contentsRect().height(), SensorSectionLayout::heightFor(2));
    display({row("Tp01", 60), row("Tp05", 60), row("Tp09", 60)});
    EXPECT_EQ(card.height(), two + SensorSectionLayout::rowHeight);
}

TEST_F(SensorCard, LightsANewBarAtOnce) {
    display({row("Tp01", 60)});
    EXPECT_FALSE(card.isAnimating());
    EXPECT_DOUBLE_EQ(card.shownLength(0), barWidth() / 2);
    display({row("Tp01", 60), row("Tp05", 100)});
    EXPECT_FALSE(card.isAnimating());
    EXPECT_DOUBLE_EQ(card.shownLength(1), barWidth());
}

TEST_F(SensorCard, MovesTheBarOfASensorThatStays) {
    display({row("Tp01", 60), row("Tp05", 40)});
    display({row("Te05", 30), row("Tp01", 60), row("Tp05", 80)});
    EXPECT_TRUE(card.isAnimating());
    EXPECT_DOUBLE_EQ(card.shownLength(1), barWidth() / 2);
    EXPECT_DOUBLE_EQ(card.shownLength(2), barWidth() / 4);
    advanceTo(gaugeDuration / 2);
    EXPECT_GT(card.shownLength(2), barWidth() / 4);
    EXPECT_LT(card.shownLength(2), barWidth() * 3 / 4);
    EXPECT_DOUBLE_EQ(card.shownLength(1), barWidth() / 2);
    advanceTo(gaugeDuration);
    EXPECT_FALSE(card.isAnimating());
    EXPECT_DOUBLE_EQ(card.shownLength(2), barWidth() * 3 / 4);
}

TEST_F(SensorCard, TurnsAMovingBarAroundFromWhereItIs) {
    display({row("Tp01", 60)});
    display({row("Tp01", 100)});
    advanceTo(gaugeDuration / 2);
    const double midway = card.shownLength(0);
    display({row("Tp01", 60)});
    EXPECT_NEAR(card.shownLength(0), midway, 1e-9);
}

TEST_F(SensorCard, KeepsStillWhenOnlyTheListChanges) {
    display({row("Tp01", 60), row("Tp05", 40), row("Tp09", 80)});
    display({row("Tp05", 40)});
    EXPECT_FALSE(card.isAnimating());
    EXPECT_DOUBLE_EQ(card.shownLength(0), barWidth() / 4);
}

TEST_F(SensorCard, IsAtTheEndWhenNobodySeesIt) {
    display({row("Tp01", 60)});
    display({row("Tp01", 100)});
    ASSERT_TRUE(card.isAnimating());
    window.hide();
    EXPECT_FALSE(card.isAnimating());
    EXPECT_DOUBLE_EQ(card.shownLength(0), barWidth());
}

TEST_F(SensorCard, KeepsADotForAColdSensor) {
    display({row("Tp01", 6)});
    EXPECT_DOUBLE_EQ(card.shownLength(0), SensorSectionLayout::barHeight);
}

TEST_F(SensorCard, DrawsTheRampUpToTheValue) {
    display({row("Tp01", 60)});
    const QImage image = card.grab().toImage().convertToFormat(QImage::Format_RGB32);
    const QRect bar = card.sectionLayout().row(0).bar;
    const int middle = bar.center().y();
    const auto difference = [&](int x, const QColor& expected) {
        const QColor color = image.pixelColor(x, middle);
        return std::max({std::abs(color.red() - expected.red()),
                         std::abs(color.green() - expected.green()),
                         std::abs(color.blue() - expected.blue())});
    };
    const auto celsiusAt = [&](int x) { return 20 + 80.0 * (x - bar.left()) / bar.width(); };
    for (const int x : {bar.left() + 10, bar.left() + bar.width() / 4, bar.center().x() - 4})
        EXPECT_LE(difference(x, Theme::thermal(celsiusAt(x))), 4) << x;
    const QColor groove = image.pixelColor(bar.right() - 10, middle);
    EXPECT_LE(difference(bar.center().x() + 4, groove), 1);
    EXPECT_GT(difference(bar.center().x() - 4, groove), 60);
}

TEST_F(SensorCard, DrawsInLightAndDark) {
    display({row("Tp01", 60)});
    const QPoint ground = card.sectionLayout().row(0).name.bottomRight();
    EXPECT_EQ(card.grab().toImage().pixelColor(ground), Colors::of(lightPalette()).card);
    window.setPalette(darkPalette());
    EXPECT_EQ(card.grab().toImage().pixelColor(ground), Colors::of(darkPalette()).card);
}

TEST_F(SensorCard, RingsTheCurrentRowOnly) {
    display({row("Tp01", 60), row("Tp05", 60)});
    const QImage before = card.grab().toImage();
    card.setCurrentRow(1);
    const QImage after = card.grab().toImage();
    const auto part = [&](const QImage& image, int index) {
        return image.copy(card.sectionLayout().row(index).row.adjusted(0, 1, 0, 0));
    };
    EXPECT_EQ(part(before, 0), part(after, 0));
    EXPECT_NE(part(before, 1), part(after, 1));
    card.setCurrentRow(std::nullopt);
    EXPECT_EQ(card.grab().toImage(), before);
}
