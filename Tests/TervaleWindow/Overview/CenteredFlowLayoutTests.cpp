#include "TervaleWindow/Overview/CenteredFlowLayout.h"

#include <QWidget>

#include <gtest/gtest.h>

using namespace tervale;

namespace {

/// A widget with boxes of 100 x 50 in a flow, 10 apart and rows 20 apart.
class Flow {
  public:
    explicit Flow(int count) : layout(new CenteredFlowLayout(10, 20)) {
        host.setLayout(layout);
        for (int i = 0; i < count; ++i) {
            auto* box = new QWidget;
            box->setFixedSize(100, 50);
            layout->addWidget(box);
        }
    }

    std::vector<QRect> placesIn(int width, int height) {
        layout->setGeometry({0, 0, width, height});
        std::vector<QRect> places;
        for (int i = 0; i < layout->count(); ++i)
            places.push_back(layout->itemAt(i)->geometry());
        return places;
    }

    QWidget host;
    CenteredFlowLayout* layout;
};

} // namespace

TEST(CenteredFlowLayout, CentresARowThatFits) {
    Flow flow(2);
    EXPECT_EQ(flow.placesIn(300, 50), (std::vector{QRect(45, 0, 100, 50), QRect(155, 0, 100, 50)}));
    EXPECT_EQ(flow.layout->heightForWidth(300), 50);
}

TEST(CenteredFlowLayout, BeginsANewRowWhereTheWidthEnds) {
    Flow flow(3);
    EXPECT_EQ(flow.placesIn(210, 120),
              (std::vector{QRect(0, 0, 100, 50), QRect(110, 0, 100, 50), QRect(55, 70, 100, 50)}));
    EXPECT_EQ(flow.layout->heightForWidth(210), 120);
    EXPECT_EQ(flow.layout->heightForWidth(209), 190);
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
