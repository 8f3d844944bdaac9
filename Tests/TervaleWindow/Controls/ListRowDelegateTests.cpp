#include "TervaleWindow/Appearance/Symbol.h"
#include "TervaleWindow/Appearance/Theme.h"
#include "TervaleWindow/Controls/ControlsFixture.h"
#include "TervaleWindow/Controls/ListRowDelegate.h"

#include <QHelpEvent>
#include <QListWidget>
#include <QToolTip>

using namespace tervale;

class ListRows : public ControlsFixture {
  protected:
    void SetUp() override {
        ControlsFixture::SetUp();
        list.setItemDelegate(new ListRowDelegate({32, 1, 8, QFont::Normal}, &list));
        list.setFrameShape(QFrame::NoFrame);
        list.setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
        list.resize(200, 100);
        list.addItems({"One", "Two"});
        present(list);
    }

    QImage rowImage(int row) {
        return list.viewport()->grab().toImage().copy(list.visualItemRect(list.item(row)));
    }
    /// Whether the row has a colour like this one anywhere.
    bool has(const QImage& image, const QColor& color) {
        for (int y = 0; y < image.height(); ++y) {
            for (int x = 0; x < image.width(); ++x) {
                if (isClose(image.pixelColor(x, y), color))
                    return true;
            }
        }
        return false;
    }

    QListWidget list;
};

TEST_F(ListRows, HaveTheirHeight) {
    EXPECT_EQ(list.visualItemRect(list.item(0)).height(), 32);
    EXPECT_EQ(list.visualItemRect(list.item(1)).top(), 32);
}

TEST_F(ListRows, StandOnTheAccentColourWhenChosen) {
    list.setCurrentRow(0);
    EXPECT_TRUE(isClose(rowImage(0).pixelColor(15, 16), Theme::accent()));
    EXPECT_FALSE(has(rowImage(1), Theme::accent()));
}

TEST_F(ListRows, ShowARingOnlyWhileTheKeyboardIsThere) {
    list.setCurrentRow(0);
    list.clearFocus();
    const QImage without = rowImage(0);
    list.setFocus(Qt::TabFocusReason);
    list.window()->setAttribute(Qt::WA_KeyboardFocusChange);
    const QImage with = rowImage(0);
    EXPECT_NE(with, without);
    // On the chosen row it is white.
    EXPECT_GT(with.pixelColor(100, 3).red(), without.pixelColor(100, 3).red() + 100);
    list.clearFocus();
    EXPECT_EQ(rowImage(0), without);
}

TEST_F(ListRows, MarkTheRowAtItsEnd) {
    const QColor warning = Colors::of(list.palette()).warning;
    EXPECT_FALSE(has(rowImage(1), warning));
    list.item(1)->setData(ListRowDelegate::markRole,
                          static_cast<int>(Symbol::exclamationTriangleFill));
    const QImage row = rowImage(1);
    EXPECT_TRUE(has(row.copy(200 - 18 - 15, 0, 15, 32), warning));
    EXPECT_FALSE(has(row.copy(0, 0, 200 - 18 - 15, 32), warning));
}

TEST_F(ListRows, PutASymbolBeforeTheText) {
    const QImage without = rowImage(1);
    list.item(1)->setData(ListRowDelegate::symbolRole, static_cast<int>(Symbol::fan));
    const QImage with = rowImage(1);
    EXPECT_TRUE(has(with.copy(18, 0, 16, 32), Theme::accent()));
    // The text moves by the symbol and the gap.
    EXPECT_EQ(with.copy(18 + 25, 0, 60, 32), without.copy(18, 0, 60, 32));
}

TEST_F(ListRows, TellTheWholeTextWhereItIsCut) {
    const auto hover = [this](int row) {
        const QPoint place = list.visualItemRect(list.item(row)).center();
        QHelpEvent event(QEvent::ToolTip, place, list.viewport()->mapToGlobal(place));
        QApplication::sendEvent(list.viewport(), &event);
        return QToolTip::isVisible() ? QToolTip::text() : QString();
    };
    EXPECT_EQ(hover(0), "");
    list.item(1)->setText(QString("A <long> name ").repeated(10));
    EXPECT_EQ(hover(1), "<p>" + list.item(1)->text().toHtmlEscaped() + "</p>");
    QToolTip::hideText();
}
