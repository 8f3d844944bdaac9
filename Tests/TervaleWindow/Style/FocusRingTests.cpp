#include "TervaleWindow/Appearance/Theme.h"
#include "TervaleWindow/Controls/FractionSlider.h"
#include "TervaleWindow/Controls/ModeButton.h"
#include "TervaleWindow/Controls/ToggleSwitch.h"
#include "TervaleWindow/Style/FocusRing.h"
#include "TervaleWindow/Style/ListRowPainting.h"
#include "TervaleWindow/Support/ControlsFixture.h"
#include "TervaleWindow/Support/Palettes.h"

#include <QLineEdit>
#include <QPaintEvent>
#include <QPushButton>
#include <QScrollArea>
#include <QStyleFactory>

#include <utility>
#include <vector>

using namespace tervale;

namespace {

/// Of what tells where the focus is, to what it lies beside.
constexpr double leastContrast = 3;

/// How often a place of a widget is painted.
class PaintsOfAPlace final : public QObject {
  public:
    PaintsOfAPlace(QWidget& widget, QPoint place) : place(place) {
        widget.installEventFilter(this);
    }
    int count = 0;

  protected:
    bool eventFilter(QObject*, QEvent* event) override {
        if (event->type() == QEvent::Paint &&
            static_cast<QPaintEvent*>(event)->region().contains(place))
            ++count;
        return false;
    }

  private:
    QPoint place;
};

struct FocusRingTest : ControlsInWindow {
    /// Between the outer edge of a control and that of its ring.
    QColor ringColor(const QWidget& control) {
        return pixel(window, control.geometry().topLeft() + QPoint(control.width() / 2, -2));
    }
    /// Above and below a control's upper edge: within it, on its ring, beyond that.
    struct Edge {
        QColor inside;
        QColor ring;
        QColor outside;
    };
    Edge edgeOf(const QWidget& control, int x) {
        const QImage image = window.grab().toImage();
        const QPoint top = control.geometry().topLeft() + QPoint(x, 0);
        return {image.pixelColor(top + QPoint(0, 2)), image.pixelColor(top - QPoint(0, 2)),
                image.pixelColor(top - QPoint(0, 6))};
    }
};

/// The ring of a row of a list that the keyboard reached, where the row is selected or not.
QColor ringOfRow(const QPalette& palette, QStyle::State more) {
    QImage image(60, 30, QImage::Format_RGB32);
    image.fill(palette.color(QPalette::Window));
    QPainter painter(&image);
    QStyleOptionViewItem row;
    row.palette = palette;
    row.state = QStyle::State_HasFocus | QStyle::State_KeyboardFocusChange | more;
    paintListRowGround(painter, image.rect(), row);
    painter.end();
    return image.pixelColor(30, 2);
}

} // namespace

TEST_F(FocusRingTest, IsLeftByTheKeyboardOnly) {
    QPushButton& first = show(new QPushButton("Revert"));
    QPushButton& second = show(new QPushButton("Save"));
    first.setFocus(Qt::MouseFocusReason);
    QApplication::processEvents();
    EXPECT_EQ(visibleRing(), nullptr);
    QTest::keyClick(&window, Qt::Key_Tab);
    QApplication::processEvents();
    ASSERT_TRUE(second.hasFocus());
    ASSERT_NE(visibleRing(), nullptr);
    EXPECT_EQ(visibleRing()->widget(), &second);
    EXPECT_FALSE(isClose(ringColor(second), lightLook().color(QPalette::Window)));
    QTest::mouseClick(&first, Qt::LeftButton);
    EXPECT_EQ(visibleRing(), nullptr);
}

TEST_F(FocusRingTest, IsAroundAFieldHoweverItGotTheFocus) {
    QLineEdit& field = show(new QLineEdit("Night"));
    field.clearFocus();
    QTest::mouseClick(&field, Qt::LeftButton);
    field.setFocus(Qt::MouseFocusReason);
    ASSERT_NE(visibleRing(), nullptr);
    const QRect ring = visibleRing()->geometry();
    EXPECT_EQ(ring.center(), field.geometry().center());
    EXPECT_EQ(ring.width(), field.width() + 2 * focusRingWidth);
    EXPECT_EQ(ring.height(), field.height() + 2 * focusRingWidth);
}

TEST_F(FocusRingTest, SurroundsTheWindowsOwnControlsInAnyStyle) {
    QApplication::setStyle(QStyleFactory::create("Fusion"));
    ModeButton& button = show(new ModeButton("50%"));
    button.clearFocus();
    button.setFocus(Qt::TabFocusReason);
    QApplication::processEvents();
    ASSERT_NE(visibleRing(), nullptr);
    EXPECT_EQ(visibleRing()->widget(), &button);
    EXPECT_TRUE(visibleRing()->geometry().contains(button.geometry()));
    EXPECT_FALSE(isClose(ringColor(button), window.palette().color(QPalette::Window)));
    tervale::wear(lookUnderTest());
}

TEST_F(FocusRingTest, IsThereAfterTabScrolledTheControlIntoView) {
    auto* area = new QScrollArea;
    auto* content = new QWidget;
    auto* column = new QVBoxLayout(content);
    auto* first = new QPushButton("Revert");
    auto* last = new QPushButton("Save");
    column->addWidget(first);
    column->addSpacing(900);
    column->addWidget(last);
    area->setWidget(content);
    area->setWidgetResizable(true);
    area->setFixedSize(240, 160);
    area->setFocusPolicy(Qt::NoFocus);
    show(area);
    first->setFocus(Qt::TabFocusReason);
    for (QPushButton* next : {last, first, last}) {
        // The area scrolls for a key that comes to it from within.
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
        QApplication::processEvents();
        ASSERT_TRUE(next->hasFocus());
        ASSERT_NE(visibleRing(), nullptr);
        EXPECT_EQ(visibleRing()->widget(), next);
        QWidget* viewport = area->viewport();
        const QRect ring(visibleRing()->mapTo(viewport, QPoint()), visibleRing()->size());
        const QRect control(next->mapTo(viewport, QPoint()), next->size());
        EXPECT_EQ(ring.center(), control.center());
        EXPECT_TRUE(viewport->rect().contains(control));
        EXPECT_EQ(ring.width(), control.width() + 2 * focusRingWidth);
    }
}

TEST_F(FocusRingTest, IsAroundTheKnobOfASliderThatTheKeyboardReached) {
    FractionSlider& slider = show(new FractionSlider);
    slider.setFraction(0.5);
    const QPoint besideKnob(slider.width() / 2, slider.height() - 2);
    slider.setFocus(Qt::MouseFocusReason);
    const QColor without = pixel(slider, besideKnob);
    slider.clearFocus();
    slider.setFocus(Qt::TabFocusReason);
    const QColor with = pixel(slider, besideKnob);
    EXPECT_GT(with.blue() - with.red(), without.blue() - without.red() + 30);
}

TEST(FocusRingColor, StandsOutFromWhatItLiesOnInEveryPalette) {
    for (const NamedPalette& each : everyPalette()) {
        SCOPED_TRACE(each.name);
        const Colors colors = Colors::of(each.palette);
        EXPECT_EQ(colors.highContrast, each.highContrast);
        const QColor usual = focusRingColor(colors, RingGround::window);
        const QColor around = focusRingColor(colors, RingGround::aroundAccent);
        for (const QColor& ground : {colors.window, colors.card, colors.sidebar}) {
            EXPECT_GE(contrast(ground, usual), leastContrast);
            EXPECT_GE(contrast(ground, around), leastContrast);
        }
        for (const QColor& ground : {colors.window, colors.card})
            EXPECT_GE(contrast(onto(ground, colors.quaternary), usual), leastContrast);
        EXPECT_GE(contrast(colors.control, usual), leastContrast);
        EXPECT_GE(contrast(Theme::accent(), around), leastContrast);
        const QColor within = focusRingColor(colors, RingGround::accent);
        EXPECT_GE(contrast(Theme::accent(), within), leastContrast);
    }
}

TEST_F(FocusRingTest, StandsOutFromEachControlAndItsGroundInEveryPalette) {
    rows.setContentsMargins(20, 20, 20, 20);
    rows.setSpacing(20);
    auto* chosen = new ModeButton("50%");
    chosen->setSelected(Selection::selected);
    auto* on = new ToggleSwitch("Launch at login");
    on->setChecked(true);
    auto* save = new QPushButton("Save");
    save->setDefault(true);
    // Looked at where neither a corner nor a knob is.
    const std::vector<std::pair<QWidget*, int>> controls{{chosen, 20},
                                                         {new ModeButton("25%"), 20},
                                                         {on, 12},
                                                         {new ToggleSwitch("Launch at login"), 26},
                                                         {save, 12},
                                                         {new QPushButton("Revert"), 12},
                                                         {new QLineEdit("Night"), 12}};
    for (const auto& [control, x] : controls)
        show(control);
    for (const NamedPalette& each : everyPalette()) {
        wear(each.palette);
        for (const auto& [control, x] : controls) {
            SCOPED_TRACE(each.name + ", " + control->metaObject()->className());
            // The first one has the focus already, and not from the keyboard.
            control->clearFocus();
            control->setFocus(Qt::TabFocusReason);
            QApplication::processEvents();
            const Edge edge = edgeOf(*control, x);
            EXPECT_GE(contrast(edge.inside, edge.ring), leastContrast);
            EXPECT_GE(contrast(edge.outside, edge.ring), leastContrast);
        }
    }
}

TEST_F(FocusRingTest, FollowsTheControlThatIsFilledWithTheAccent) {
    ModeButton& button = show(new ModeButton("50%"));
    button.clearFocus();
    button.setFocus(Qt::TabFocusReason);
    QApplication::processEvents();
    const QColor before = ringColor(button);
    ASSERT_NE(visibleRing(), nullptr);
    PaintsOfAPlace paints(*visibleRing(), QPoint(visibleRing()->width() / 2, 1));
    button.setSelected(Selection::selected);
    QApplication::processEvents();
    EXPECT_GT(paints.count, 0);
    EXPECT_FALSE(isClose(ringColor(button), before, 40));
    button.setSelected(Selection::unselected);
    QApplication::processEvents();
    EXPECT_TRUE(isClose(ringColor(button), before, 1));
}

TEST_F(FocusRingTest, OfARowStandsOutInEveryPalette) {
    for (const NamedPalette& each : everyPalette()) {
        SCOPED_TRACE(each.name);
        EXPECT_GE(contrast(each.palette.color(QPalette::Window), ringOfRow(each.palette, {})),
                  leastContrast);
        EXPECT_GE(contrast(Theme::accent(), ringOfRow(each.palette, QStyle::State_Selected)),
                  leastContrast);
    }
}
