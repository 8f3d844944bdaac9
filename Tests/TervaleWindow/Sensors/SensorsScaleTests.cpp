#include "TervaleWindow/Sensors/SensorsFixture.h"

using namespace tervale;

/// With many more sensors than any machine has.
class ManySensors : public SensorsFixture {
  protected:
    static constexpr int count = 2000;
    static constexpr int steps = 20;

    void SetUp() override {
        SensorsFixture::SetUp();
        useSensors(count / 2);
        for (int number = 0; number < count - count / 2; ++number)
            controller.set(QString("Tg%1").arg(number, 2, 36, QChar('0')).toStdString(), 60);
        show();
    }
    qsizetype widgets() { return view->findChildren<QWidget*>().size(); }
};

TEST_F(ManySensors, AreAllListed) {
    EXPECT_EQ(cards()[0]->section().count(), "1000 sensors");
    EXPECT_EQ(cards()[1]->section().count(), "1000 sensors");
}

TEST_F(ManySensors, ScrollWithoutAReadAndWithoutANewWidget) {
    const auto widgetsBefore = widgets();
    const int callsBefore = controller.calls;
    for (int number = 0; number <= steps; ++number) {
        scrollBar().setValue(scrollBar().maximum() / steps * number);
        view->repaint();
    }
    EXPECT_GT(scrollBar().value(), 10000);
    EXPECT_EQ(widgets(), widgetsBefore);
    EXPECT_EQ(controller.calls, callsBefore);
}

TEST_F(ManySensors, FollowTheFilterWithoutAReadAndWithoutANewWidget) {
    search().setFocus();
    const auto widgetsBefore = widgets();
    const int callsBefore = controller.calls;
    for (int number = 0; number < steps; ++number) {
        QTest::keyClick(&search(), number % 2 == 0 ? Qt::Key_G : Qt::Key_Backspace);
        view->repaint();
    }
    EXPECT_EQ(cards().size(), 2U);
    EXPECT_EQ(widgets(), widgetsBefore);
    EXPECT_EQ(controller.calls, callsBefore);
}
