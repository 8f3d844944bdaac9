#include "TervaleWindow/Accessibility/AccessibleFactory.h"
#include "TervaleWindow/Appearance/Symbol.h"
#include "TervaleWindow/Controls/Decoration.h"
#include "TervaleWindow/Controls/Divider.h"
#include "TervaleWindow/Controls/SymbolView.h"

#include <QAccessible>
#include <QLabel>
#include <QLineEdit>

#include <gtest/gtest.h>

using namespace tervale;

class AccessibleContainers : public testing::Test {
  protected:
    AccessibleContainers() { installAccessibleFactory(); }

    static QAccessibleInterface* accessible(QWidget& widget) {
        return QAccessible::queryAccessibleInterface(&widget);
    }
};

TEST_F(AccessibleContainers, TellAWindowFromWhatOnlyHoldsOthers) {
    QWidget window;
    window.setWindowTitle("Tervale");
    QWidget box(&window);
    EXPECT_EQ(accessible(window)->role(), QAccessible::Window);
    EXPECT_EQ(accessible(window)->text(QAccessible::Name), "Tervale");
    EXPECT_EQ(accessible(box)->role(), QAccessible::Client);
    EXPECT_EQ(accessible(window)->child(0), accessible(box));
    EXPECT_EQ(accessible(window)->indexOfChild(accessible(box)), 0);
}

TEST_F(AccessibleContainers, LeaveOutWhatIsForTheEyeAlone) {
    QWidget row;
    new SymbolView(Symbol::fan, 16, TextColor::label, &row);
    new Divider(Qt::Horizontal, &row);
    QLabel title("Name", &row);
    QLineEdit field(&row);
    title.setBuddy(&field);
    QLabel figure("58 °C", &row);
    markAsDecoration(figure);
    QLabel note("A note", &row);
    ASSERT_EQ(accessible(row)->childCount(), 2);
    EXPECT_EQ(accessible(row)->child(0), accessible(field));
    EXPECT_EQ(accessible(row)->child(1), accessible(note));
    EXPECT_EQ(accessible(row)->child(2), nullptr);
    EXPECT_EQ(accessible(row)->indexOfChild(accessible(figure)), -1);
}

TEST_F(AccessibleContainers, TakeNoMarkupForADescription) {
    QWidget row;
    row.setToolTip("<p>A long name</p>");
    EXPECT_EQ(accessible(row)->text(QAccessible::Description), "");
    row.setAccessibleDescription("Of all fans");
    EXPECT_EQ(accessible(row)->text(QAccessible::Description), "Of all fans");
}
