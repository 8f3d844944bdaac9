#include "TervaleWindow/Sensors/SensorsFixture.h"
#include "TervaleWindow/Support/HeardEvents.h"

#include <QAccessible>

using namespace tervale;

class SensorsKeyboard : public SensorsFixture {};

TEST_F(SensorsKeyboard, GoesToTheFilterToFindASensor) {
    useUsualSensors();
    show();
    list().setFocus();
    type("CPU");
    list().setFocus();
    view->find();
    EXPECT_TRUE(search().hasFocus());
    EXPECT_EQ(search().selectedText(), "CPU");
}

TEST_F(SensorsKeyboard, GoesThroughTheRowsOfAllSectionsByTheArrows) {
    useUsualSensors();
    show();
    search().setFocus();
    QStringList reached;
    for (int press = 0; press < 8; ++press) {
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Down);
        reached << QString::fromStdString(list().current()->key);
    }
    EXPECT_EQ(reached,
              QStringList({"Te05", "Tp01", "Tp05", "Tg05", "Tg0D", "TH0x", "TH0x", "TH0x"}));
    EXPECT_EQ(cards()[2]->currentRow(), 0);
    QTest::keyClick(&list(), Qt::Key_Up);
    EXPECT_EQ(list().current()->key, "Tg0D");
    EXPECT_EQ(cards()[1]->currentRow(), 1);
    EXPECT_EQ(cards()[2]->currentRow(), std::nullopt);
}

TEST_F(SensorsKeyboard, ShowsTheCurrentRowOnlyWithTheFocus) {
    useUsualSensors();
    show();
    list().setFocus(Qt::TabFocusReason);
    EXPECT_EQ(cards()[0]->currentRow(), 0);
    search().setFocus();
    EXPECT_EQ(cards()[0]->currentRow(), std::nullopt);
    list().setFocus(Qt::TabFocusReason);
    EXPECT_EQ(cards()[0]->currentRow(), 0);
}

TEST_F(SensorsKeyboard, KeepsToTheCurrentSensorWhileTheListChanges) {
    useUsualSensors();
    show();
    list().setFocus(Qt::TabFocusReason);
    QTest::keyClick(&list(), Qt::Key_Down);
    ASSERT_EQ(list().current()->key, "Tp01");
    search().setText("tp");
    EXPECT_EQ(cards()[0]->currentRow(), 0);
    search().setText("gpu");
    EXPECT_EQ(cards()[0]->currentRow(), std::nullopt);
    QTest::keyClick(&list(), Qt::Key_Down);
    EXPECT_EQ(list().current()->key, "Tg05");
}

TEST_F(SensorsKeyboard, ScrollsByTheKeyboard) {
    useSensors(200);
    show();
    list().setFocus(Qt::TabFocusReason);
    const auto row = [this] { return *cards().front()->currentRow(); };
    const auto rowIsSeen = [&] {
        const QRect place = cards().front()->sectionLayout().row(row()).row;
        return cards().front()->visibleRegion().boundingRect().contains(place);
    };
    QTest::keyClick(&list(), Qt::Key_PageDown);
    const int page = row();
    EXPECT_GT(page, 10);
    EXPECT_LT(page, 628 / SensorSectionLayout::rowHeight);
    EXPECT_TRUE(rowIsSeen());
    QTest::keyClick(&list(), Qt::Key_End);
    EXPECT_EQ(row(), 199);
    EXPECT_TRUE(rowIsSeen());
    EXPECT_EQ(scrollBar().value(), scrollBar().maximum());
    QTest::keyClick(&list(), Qt::Key_PageUp);
    // At the end the window shows a margin below the last row.
    EXPECT_NEAR(row(), 199 - page, 1);
    QTest::keyClick(&list(), Qt::Key_Home);
    EXPECT_EQ(row(), 0);
    EXPECT_EQ(scrollBar().value(), 0);
}

TEST_F(SensorsKeyboard, ClearsTheFilterWithEscapeFromTheListToo) {
    useUsualSensors();
    show();
    type("gpu");
    list().setFocus(Qt::TabFocusReason);
    QTest::keyClick(&list(), Qt::Key_Escape);
    EXPECT_EQ(search().text(), "");
}

TEST_F(SensorsKeyboard, ReadsEveryRowToAssistiveTechnology) {
    useUsualSensors();
    show();
    auto* section = QAccessible::queryAccessibleInterface(cards()[0]);
    ASSERT_TRUE(section);
    EXPECT_EQ(section->role(), QAccessible::List);
    EXPECT_EQ(section->text(QAccessible::Name), "CPU");
    EXPECT_EQ(section->text(QAccessible::Description), "3 sensors");
    ASSERT_EQ(section->childCount(), 3);
    auto* row = section->child(2);
    ASSERT_TRUE(row && row->isValid());
    EXPECT_EQ(row->role(), QAccessible::ListItem);
    EXPECT_EQ(row->text(QAccessible::Name), "CPU Tp05, 61 °C");
    EXPECT_EQ(row->valueInterface(), nullptr);
    EXPECT_EQ(row->parent(), section);
    EXPECT_EQ(section->indexOfChild(row), 2);
    EXPECT_EQ(section->child(2), row);
    EXPECT_EQ(section->child(3), nullptr);
    const QPoint middle = row->rect().center();
    EXPECT_EQ(section->childAt(middle.x(), middle.y()), row);
    search().setText("tp01");
    EXPECT_FALSE(row->isValid());
    EXPECT_EQ(section->child(0)->text(QAccessible::Name), "CPU Tp01, 57 °C");
}

TEST_F(SensorsKeyboard, TellsAssistiveTechnologyWhereTheKeyboardIs) {
    useUsualSensors();
    show();
    list().setFocus(Qt::TabFocusReason);
    QTest::keyClick(&list(), Qt::Key_Down);
    auto* section = QAccessible::queryAccessibleInterface(cards()[0]);
    EXPECT_FALSE(section->child(0)->state().focused);
    EXPECT_TRUE(section->child(1)->state().focused);
    EXPECT_EQ(section->focusChild(), section->child(1));
}

TEST_F(SensorsKeyboard, SaysTheSensorThatTheFocusComesTo) {
    useUsualSensors();
    show();
    HeardEvents heard;
    list().setFocus(Qt::TabFocusReason);
    QApplication::processEvents();
    const QString first =
        QAccessible::queryAccessibleInterface(cards()[0])->child(0)->text(QAccessible::Name);
    EXPECT_EQ(heard.take().filter("focus: ").last(), "focus: " + first);
    QTest::keyClick(&list(), Qt::Key_Down);
    EXPECT_EQ(heard.take().filter("focus: "), QStringList{"focus: CPU Tp01, 57 °C"});
}
