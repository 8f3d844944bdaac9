#include "TervaleWindow/Controls/Card.h"
#include "TervaleWindow/Controls/SymbolButton.h"
#include "TervaleWindow/Profiles/ProfilesFixture.h"
#include "TervaleWindow/Support/InLocale.h"

#include <QLabel>
#include <QScrollArea>
#include <QScrollBar>

namespace tervale {
namespace {

class ProfilesLayout : public ProfilesFixture {
  protected:
    /// The texts of labels that have less room than they need, or reach out of what they lie in.
    QStringList clippedLabels() const {
        QStringList clipped;
        for (const auto* label : view->findChildren<QLabel*>()) {
            if (!label->isVisibleTo(view.get()) || label->text().isEmpty())
                continue;
            const int needed = label->hasHeightForWidth() ? label->heightForWidth(label->width())
                                                          : label->minimumSizeHint().height();
            const QRect room = label->parentWidget()->rect();
            if (needed > label->height() || label->minimumSizeHint().width() > label->width() ||
                !room.contains(label->geometry()))
                clipped << label->text();
        }
        return clipped;
    }
};

TEST_F(ProfilesLayout, EndsTheRemoveSymbolOfAWindowWhereTheNameFieldEnds) {
    const InLocale leftToRight(QLocale::c());
    openWith({scheduleProfile(1, "Night", action::Automatic{})});
    const auto* remove = button<SymbolButton>("Remove window 1 of 1");
    const auto rightOf = [this](const QWidget* widget) {
        return widget->mapTo(view.get(), widget->rect().topRight()).x();
    };
    constexpr int aroundSymbol = 5;
    EXPECT_EQ(rightOf(remove) - aroundSymbol, rightOf(nameField()));
}

TEST_F(ProfilesLayout, KeepsItsBottomBarInLineWithTheCards) {
    const InLocale leftToRight(QLocale::c());
    openWith({loadProfile(1, "Busy")});
    for (const QSize size : {QSize(790, 680), QSize(590, 520)}) {
        view->resize(size);
        QCoreApplication::processEvents();
        const QWidget* card = find<Card>();
        const QWidget* save = button("Save");
        ASSERT_NE(card, nullptr);
        const auto endOf = [this](const QWidget& widget) {
            return widget.mapTo(view.get(), widget.rect().topRight()).x();
        };
        const int scrollBar =
            find<QScrollArea>()->width() - find<QScrollArea>()->viewport()->width();
        EXPECT_EQ(endOf(*save), endOf(*card) + scrollBar) << size.width();
    }
}

TEST_F(ProfilesLayout, StaysUsableAtItsLargest) {
    std::vector<Profile> profiles;
    for (int number = 1; number <= 200; ++number)
        profiles.push_back(loadProfile(number, std::string(200, 'W')));
    std::vector<Window> windows;
    for (std::int64_t number = 0; number < 30; ++number)
        windows.push_back({number * 48, number * 48 + 40, action::Profile{idOf(1)}});
    profiles.push_back({idOf(300), "ليلة 🌙", kind::Schedule{windows}});
    openWith(profiles);
    view->resize(590, 520);
    clickRow(0);
    list()->setFocus();
    QTest::keyClick(list(), Qt::Key_End);
    EXPECT_EQ(nameField()->text().toStdString(), "ليلة 🌙");
    QCoreApplication::processEvents();
    const auto* scrollArea = find<QScrollArea>();
    EXPECT_EQ(scrollArea->horizontalScrollBar()->maximum(), 0);
    EXPECT_GT(scrollArea->verticalScrollBar()->maximum(), 0);
    EXPECT_LE(view->minimumSizeHint().width(), 590);
    EXPECT_LE(view->minimumSizeHint().height(), 520);
}

TEST_F(ProfilesLayout, FitsEveryKindOfProfileInItsLeastWidth) {
    openWith(threeProfiles);
    view->resize(590, 520);
    for (int row = 0; row < 3; ++row) {
        clickRow(row);
        QCoreApplication::processEvents();
        EXPECT_EQ(find<QScrollArea>()->horizontalScrollBar()->maximum(), 0) << row;
    }
}

TEST_F(ProfilesLayout, ClipsNothingInItsLeastSizeInEitherDirection) {
    Curve full;
    for (int point = 0; point < Profile::maxPoints; ++point)
        full.points.push_back({20.0 + 10 * point, 0.1 * point});
    const std::vector<Profile> profiles{
        {idOf(1), "", kind::Temperature{{SensorGroup::cpu, true}, full}},
        {idOf(2), "Night",
         kind::Schedule{{{1380, 420, action::Fixed{0.4}}, {0, 60, action::Profile{idOf(9)}}}}},
        loadProfile(3, "Busy")};
    openWith(profiles);
    for (const auto direction : {Qt::LeftToRight, Qt::RightToLeft}) {
        view->setLayoutDirection(direction);
        view->resize(590, 520);
        for (int row = 0; row < 3; ++row) {
            clickRow(row);
            QCoreApplication::processEvents();
            EXPECT_EQ(clippedLabels(), QStringList()) << row;
            EXPECT_EQ(find<QScrollArea>()->horizontalScrollBar()->maximum(), 0) << row;
        }
    }
}

} // namespace
} // namespace tervale
