#include "TervaleWindow/Accessibility/AccessibleFactory.h"
#include "TervaleWindow/Controls/PopUpButton.h"
#include "TervaleWindow/Support/ControlsFixture.h"
#include "TervaleWindow/Support/HeardEvents.h"

#include <QAbstractItemView>
#include <QListWidget>
#include <QSignalSpy>

using namespace tervale;

class AccessibleLists : public ControlsInWindow {
  protected:
    void SetUp() override {
        ControlsFixture::SetUp();
        installAccessibleFactory();
    }

    QListWidget& panes() {
        auto* list = new QListWidget;
        list->setAccessibleName("Panes");
        list->addItems({"Overview", "Profiles", "Sensors"});
        list->setCurrentRow(0);
        return show(list);
    }
    static void press(QAccessibleInterface* item) {
        item->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    }
};

TEST_F(AccessibleLists, ChooseARowByItsActionAsAClickDoes) {
    QListWidget& list = panes();
    QAccessibleInterface* rows = accessible(list);
    EXPECT_EQ(rows->role(), QAccessible::List);
    EXPECT_EQ(rows->tableInterface(), nullptr);
    ASSERT_EQ(rows->childCount(), 3);
    QAccessibleInterface* second = rows->child(1);
    EXPECT_EQ(second->role(), QAccessible::ListItem);
    EXPECT_EQ(second->text(QAccessible::Name), "Profiles");
    EXPECT_EQ(second->parent(), rows);
    EXPECT_EQ(rows->indexOfChild(second), 1);
    QSignalSpy changes(&list, &QListWidget::itemSelectionChanged);
    press(second);
    EXPECT_EQ(list.currentRow(), 1);
    EXPECT_EQ(list.selectedItems(), QList{list.item(1)});
    EXPECT_EQ(changes.count(), 1);
    EXPECT_TRUE(second->state().selected);
    EXPECT_FALSE(rows->child(0)->state().selected);
}

TEST_F(AccessibleLists, HaveAFocusedRowOnlyWithTheFocus) {
    QListWidget& first = panes();
    QListWidget& second = panes();
    // What joins a window that is shown already comes to be seen a moment later.
    QApplication::processEvents();
    second.setFocus();
    ASSERT_TRUE(second.hasFocus());
    EXPECT_FALSE(accessible(first)->child(0)->state().focused);
    EXPECT_TRUE(accessible(second)->child(0)->state().focused);
    EXPECT_EQ(accessible(first)->focusChild(), nullptr);
    EXPECT_EQ(accessible(second)->focusChild(), accessible(second)->child(0));
}

TEST_F(AccessibleLists, TellTheRowThatTheFocusComesTo) {
    QListWidget& first = panes();
    QListWidget& second = panes();
    accessible(second);
    QApplication::processEvents();
    first.setFocus();
    QApplication::processEvents();
    HeardEvents heard;
    QTest::keyClick(&first, Qt::Key_Tab);
    ASSERT_TRUE(second.hasFocus());
    QApplication::processEvents();
    EXPECT_EQ(heard.take(), (QStringList{"focus: Panes", "focus: Overview"}));
}

TEST_F(AccessibleLists, TellTheNewNameOfARow) {
    QListWidget& list = panes();
    accessible(list)->child(1);
    HeardEvents heard;
    list.item(1)->setText("Curves");
    EXPECT_EQ(heard.take(), QStringList{"name: Curves"});
}

TEST_F(AccessibleLists, ChooseInAPopUpButtonAndCloseIt) {
    auto* made = new PopUpButton;
    made->setAccessibleName("Profile");
    made->addItems({"No profile", "Quiet"});
    PopUpButton& button = show(made);
    QAccessibleInterface* entries = accessible(button)->child(0);
    EXPECT_EQ(entries->text(QAccessible::Name), "Profile");
    EXPECT_EQ(entries->parent(), accessible(button));
    accessible(button)->actionInterface()->doAction(QAccessibleActionInterface::showMenuAction());
    EXPECT_TRUE(button.view()->isVisible());
    QSignalSpy choices(&button, &QComboBox::activated);
    press(entries->child(1));
    EXPECT_FALSE(button.view()->isVisible());
    EXPECT_EQ(button.currentText(), "Quiet");
    EXPECT_EQ(choices.count(), 1);
}

TEST_F(AccessibleLists, OfferNoActionOnADividerBetweenEntries) {
    auto* made = new PopUpButton;
    made->setAccessibleName("Run");
    made->addItems({"Automatic", "Quiet"});
    made->insertSeparator(1);
    PopUpButton& button = show(made);
    QAccessibleInterface* divider = accessible(button)->child(0)->child(1);
    EXPECT_EQ(divider->role(), QAccessible::Separator);
    EXPECT_TRUE(divider->actionInterface()->actionNames().isEmpty());
}
