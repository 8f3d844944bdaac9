#include "TervaleWindow/Sensors/SensorsFixture.h"

#include <QElapsedTimer>

using namespace tervale;

/// With many more sensors than any machine has. The limits of time are far above what a slow
/// machine takes, and far below what a widget for each row would.
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
    /// How long one of several equal steps takes, in milliseconds.
    template <class Step>
    double timeOf(Step&& step) {
        QElapsedTimer timer;
        timer.start();
        for (int number = 0; number < steps; ++number)
            step(number);
        return static_cast<double>(timer.nsecsElapsed()) / 1e6 / steps;
    }
};

TEST_F(ManySensors, AreAllListed) {
    EXPECT_EQ(cards()[0]->section().count(), "1000 sensors");
    EXPECT_EQ(cards()[1]->section().count(), "1000 sensors");
}

TEST_F(ManySensors, ScrollAtOnce) {
    const int page = scrollBar().maximum() / steps;
    const double time = timeOf([&](int number) {
        scrollBar().setValue(number * page);
        view->repaint();
    });
    RecordProperty("millisecondsPerStep", QString::number(time).toStdString());
    EXPECT_GT(scrollBar().value(), 10000);
    EXPECT_LT(time, 100);
}

TEST_F(ManySensors, FollowTheFilterAtOnce) {
    search().setFocus();
    const double time = timeOf([&](int number) {
        QTest::keyClick(&search(), number % 2 == 0 ? Qt::Key_G : Qt::Key_Backspace);
        view->repaint();
    });
    RecordProperty("millisecondsPerStep", QString::number(time).toStdString());
    EXPECT_EQ(cards().size(), 2U);
    EXPECT_LT(time, 100);
}
