#include "TervaleWindow/Appearance/Theme.h"
#include "TervaleWindow/Controls/FractionSlider.h"
#include "TervaleWindow/Controls/PopUpButton.h"
#include "TervaleWindow/Controls/SearchField.h"
#include "TervaleWindow/Style/ButtonPainting.h"
#include "TervaleWindow/Style/WindowStyle.h"
#include "TervaleWindow/Support/ControlsFixture.h"

#include <QAbstractItemView>
#include <QPushButton>

using namespace tervale;

namespace {

struct WindowStyleTest : ControlsInWindow {
    PopUpButton& showPopUp() {
        auto* button = new PopUpButton;
        button->addItems({"No profile", "Quiet", "A profile with a name that needs more room"});
        return show(button);
    }

    /// A place on the fill of the square with the chevrons, clear of the chevrons themselves.
    static QPoint onChevrons(const QWidget& button) {
        const PopUpLayout layout = popUpLayout(button.rect(), button.layoutDirection());
        return {layout.chevrons.left() + 2, layout.chevrons.center().y()};
    }
};

} // namespace

TEST_F(WindowStyleTest, GivesThePlainAndTheProminentButtonTheirColours) {
    QPushButton& plain = show(new QPushButton("Revert"));
    QPushButton& prominent = show(new QPushButton("Save"));
    prominent.setDefault(true);
    EXPECT_EQ(plain.height(), buttonHeight);
    for (const QPalette& palette : {lightLook(), darkLook()}) {
        wear(palette);
        EXPECT_TRUE(isClose(pixel(plain, {8, 6}), Colors::of(palette).control));
        EXPECT_TRUE(isClose(pixel(prominent, {8, 6}), Theme::accent()));
    }
}

TEST_F(WindowStyleTest, KeepsALongNameClearOfTheChevrons) {
    PopUpButton& button = showPopUp();
    EXPECT_EQ(button.height(), buttonHeight);
    button.setFixedWidth(100);
    button.setCurrentIndex(2);
    QApplication::processEvents();
    const QPoint chevrons = onChevrons(button);
    EXPECT_TRUE(isClose(pixel(button, chevrons), Theme::accent()));
    for (int y = 4; y < button.height() - 4; ++y)
        EXPECT_TRUE(isClose(pixel(button, {chevrons.x() - 5, y}), Colors::of(lightLook()).control));
}

TEST_F(WindowStyleTest, PutsTheChevronsOnTheLeftWhereTextRunsFromTheRight) {
    PopUpButton& button = showPopUp();
    button.setLayoutDirection(Qt::RightToLeft);
    EXPECT_LT(onChevrons(button).x(), button.width() / 2);
    EXPECT_TRUE(isClose(pixel(button, onChevrons(button)), Theme::accent()));
}

TEST_F(WindowStyleTest, OpensTheListOfAPopUpBelowItAndWideEnoughForItsNames) {
    PopUpButton& button = showPopUp();
    for (int extra = 0; extra < 30; ++extra)
        button.addItem(QString("A profile with a rather long name, number %1").arg(extra));
    button.setFixedWidth(130);
    button.showPopup();
    const QWidget* list = button.view()->window();
    EXPECT_LT(list->height(), 31 * 20);
    EXPECT_GT(list->width(), button.fontMetrics().horizontalAdvance(button.itemText(30)));
    button.hidePopup();
}

TEST_F(WindowStyleTest, GivesASearchARoundedGroundWithoutALine) {
    SearchField& field = show(new SearchField("Filter sensors"));
    for (const QPalette& palette : {lightLook(), darkLook()}) {
        wear(palette);
        const Colors colors = Colors::of(palette);
        EXPECT_TRUE(isClose(pixel(field, {100, 2}), onto(colors.window, colors.quaternary)));
        EXPECT_TRUE(isClose(pixel(field, {0, 0}), colors.window));
    }
}

TEST_F(WindowStyleTest, FillsASliderFromItsLeadingEndUpToItsKnob) {
    FractionSlider& slider = show(new FractionSlider);
    slider.setFixedWidth(226);
    slider.setFraction(0.25);
    const int middle = slider.height() / 2;
    const Colors colors = Colors::of(slider.palette());
    const QColor empty = onto(colors.window, colors.quaternary);
    EXPECT_TRUE(isClose(pixel(slider, {10, middle}), Theme::accent()));
    EXPECT_TRUE(isClose(pixel(slider, {63, middle}), Qt::white));
    EXPECT_TRUE(isClose(pixel(slider, {200, middle}), empty));
    slider.setLayoutDirection(Qt::RightToLeft);
    EXPECT_TRUE(isClose(pixel(slider, {10, middle}), empty));
    EXPECT_TRUE(isClose(pixel(slider, {215, middle}), Theme::accent()));
}
