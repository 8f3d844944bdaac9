#include "TervaleWindow/Overview/CenteredFlowLayout.h"
#include "TervaleWindow/Support/InLocale.h"

#include <QWidget>

#include <gtest/gtest.h>

using namespace tervale;

namespace {

/// A widget with boxes of one size in a flow.
class Flow {
  public:
    static constexpr QSize box{100, 50};
    static constexpr int columnSpacing = 10;
    static constexpr int rowSpacing = 20;

    explicit Flow(int count) : layout(new CenteredFlowLayout(columnSpacing, rowSpacing)) {
        host.setLayout(layout);
        for (int i = 0; i < count; ++i) {
            auto* item = new QWidget;
            item->setFixedSize(box);
            layout->addWidget(item);
        }
    }

    std::vector<QRect> placesIn(int width, int height) {
        layout->setGeometry({0, 0, width, height});
        std::vector<QRect> places;
        places.reserve(static_cast<std::size_t>(layout->count()));
        for (int i = 0; i < layout->count(); ++i)
            places.push_back(layout->itemAt(i)->geometry());
        return places;
    }

    static int heightOf(int rows) { return rows * box.height() + (rows - 1) * rowSpacing; }

    const InLocale leftToRight{QLocale::c()};
    QWidget host;
    CenteredFlowLayout* layout;
};

int distance(const QRect& left, const QRect& right) {
    return right.left() - left.right() - 1;
}

} // namespace

TEST(CenteredFlowLayout, CentresARowThatFits) {
    Flow flow(2);
    const auto places = flow.placesIn(300, 50);
    ASSERT_EQ(places.size(), 2U);
    EXPECT_EQ(distance(places[0], places[1]), Flow::columnSpacing);
    EXPECT_EQ(places[0].left(), 299 - places[1].right());
    for (const QRect& place : places) {
        EXPECT_EQ(place.top(), 0);
        EXPECT_EQ(place.size(), Flow::box);
    }
    EXPECT_EQ(flow.layout->heightForWidth(300), Flow::box.height());
}

TEST(CenteredFlowLayout, BeginsANewRowWhereTheWidthEnds) {
    Flow flow(3);
    const int wideEnough = 2 * Flow::box.width() + Flow::columnSpacing;
    const auto places = flow.placesIn(wideEnough, 120);
    ASSERT_EQ(places.size(), 3U);
    EXPECT_EQ(places[0].left(), 0);
    EXPECT_EQ(places[1].right() + 1, wideEnough);
    EXPECT_EQ(places[0].top(), places[1].top());
    EXPECT_EQ(places[2].top(), places[0].bottom() + 1 + Flow::rowSpacing);
    EXPECT_EQ(places[2].left(), wideEnough - 1 - places[2].right());
    EXPECT_EQ(flow.layout->heightForWidth(wideEnough), flow.heightOf(2));
    EXPECT_EQ(flow.layout->heightForWidth(wideEnough - 1), flow.heightOf(3));
}

TEST(CenteredFlowLayout, BeginsOnTheRightWhereTextDoes) {
    Flow flow(2);
    flow.host.setLayoutDirection(Qt::RightToLeft);
    const auto places = flow.placesIn(300, 50);
    EXPECT_GT(places[0].left(), places[1].left());
}

TEST(CenteredFlowLayout, IsNothingWithoutItems) {
    Flow flow(0);
    EXPECT_EQ(flow.layout->heightForWidth(300), 0);
    EXPECT_TRUE(flow.placesIn(300, 0).empty());
}
