#include "TervaleWindow/Controls/PopUpButton.h"
#include "TervaleWindow/Controls/SymbolButton.h"
#include "TervaleWindow/Controls/TimeField.h"
#include "TervaleWindow/Profiles/FocusOrder.h"
#include "TervaleWindow/Profiles/ScheduleEditor.h"
#include "TervaleWindow/Profiles/ScheduleRow.h"

#include <QApplication>
#include <QScrollArea>
#include <QScrollBar>
#include <QTest>

#include <gtest/gtest.h>

namespace tervale {
namespace {

/// A schedule of a thousand windows in a pane that scrolls.
class ManyScheduleRows : public testing::Test {
  protected:
    static constexpr int count = 1000;

    ManyScheduleRows() {
        std::vector<Window> windows;
        for (std::int64_t number = 0; number < count; ++number)
            windows.push_back({number, number + 1, action::Automatic{}});
        editor = new ScheduleEditor;
        QObject::connect(editor, &ScheduleEditor::edited, editor, [this](const WindowEdit& edit) {
            std::vector<Window> edited = editor->windows();
            perform(edit, edited);
            editor->display(edited, {});
        });
        editor->display(windows, {});
        area.setWidgetResizable(true);
        area.setWidget(editor);
        area.resize(520, 400);
        area.show();
        area.activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&area));
        settle();
    }

    static void settle() {
        for (int round = 0; round < 3; ++round)
            QCoreApplication::processEvents();
    }
    void scroll(Qt::Key key) const {
        QTest::keyClick(area.verticalScrollBar(), key);
        settle();
    }
    QList<ScheduleRow*> rows() const { return editor->findChildren<ScheduleRow*>(); }
    static QString startOf(const ScheduleRow* row) { return row->findChild<TimeField*>()->text(); }
    /// Whether every place in sight has its row.
    bool sightIsFull() const {
        const int height = rows().front()->height();
        for (int y = 0; y < area.viewport()->height(); y += height / 2) {
            const QWidget* at = area.viewport()->childAt(area.viewport()->width() / 2, y);
            while (at && at != editor && !qobject_cast<const ScheduleRow*>(at))
                at = at->parentWidget();
            const QWidget* box = rows().front()->parentWidget();
            const QPoint place =
                box->mapFrom(area.viewport(), QPoint(area.viewport()->width() / 2, y));
            if (box->rect().contains(place) && !qobject_cast<const ScheduleRow*>(at))
                return false;
        }
        return true;
    }

    ScheduleEditor* editor;
    QScrollArea area;
};

TEST_F(ManyScheduleRows, AreMadeOnlyAsFarAsTheyAreInSight) {
    EXPECT_LT(rows().size(), 24);
    EXPECT_TRUE(sightIsFull());
    EXPECT_GE(rows().front()->parentWidget()->height(), count * rows().front()->height());
}

TEST_F(ManyScheduleRows, AreMadeWhereThePaneIsScrolledTo) {
    for (const Qt::Key key : {Qt::Key_PageDown, Qt::Key_End, Qt::Key_PageUp, Qt::Key_Home}) {
        scroll(key);
        EXPECT_TRUE(sightIsFull()) << key;
    }
    EXPECT_LT(rows().size(), 80);
}

TEST_F(ManyScheduleRows, StandInTheOrderOfTheWindowsWheneverTheyWereMade) {
    scroll(Qt::Key_End);
    scroll(Qt::Key_Home);
    scroll(Qt::Key_PageDown);
    const QList<ScheduleRow*> made = rows();
    EXPECT_GT(made.back()->y() - made.front()->y(), area.height());
    for (qsizetype index = 1; index < made.size(); ++index)
        EXPECT_GE(made[index]->y(), made[index - 1]->geometry().bottom());
}

TEST_F(ManyScheduleRows, AreWalkedThroughByTab) {
    rows().front()->findChild<TimeField*>()->setFocus();
    int passed = 0;
    const ScheduleRow* last = nullptr;
    for (int press = 0; press < 200; ++press) {
        followReadingOrder(area);
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
        settle();
        const auto* row =
            qobject_cast<const ScheduleRow*>(QApplication::focusWidget()->parentWidget());
        if (!row || row == last)
            continue;
        if (last) {
            EXPECT_EQ(row->y(), last->geometry().bottom() + 1);
        }
        last = row;
        ++passed;
    }
    EXPECT_GT(passed, 20);
}

TEST_F(ManyScheduleRows, LoseTheOneWhoseButtonIsClicked) {
    ScheduleRow* third = rows()[2];
    const QString next = startOf(rows()[3]);
    QTest::mouseClick(third->findChild<SymbolButton*>(), Qt::LeftButton);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    settle();
    EXPECT_EQ(editor->windows().size(), count - 1U);
    EXPECT_EQ(startOf(rows()[2]), next);
    EXPECT_TRUE(sightIsFull());
}

TEST_F(ManyScheduleRows, GrowWithThePane) {
    area.resize(520, 900);
    settle();
    EXPECT_TRUE(sightIsFull());
    area.resize(editor->minimumSizeHint().width() + area.verticalScrollBar()->width(), 900);
    settle();
    EXPECT_TRUE(sightIsFull());
}

} // namespace
} // namespace tervale
