#include "TervaleWindow/Appearance/Symbol.h"
#include "TervaleWindow/Gauges/FanDial.h"
#include "TervaleWindow/Gauges/GaugeTestSupport.h"

#include <QImage>
#include <QString>

#include <gtest/gtest.h>

#include <vector>

using namespace tervale;

namespace {

/// A system whose symbols are full squares, and what it was asked for.
class FanDialSymbol : public testing::Test {
  protected:
    struct Asked {
        QString name;
        qreal weight;
        bool operator==(const Asked&) const = default;
    };

    FanDialSymbol() {
        useSymbolShapes([this](const QString& name, int side, qreal weight) {
            asked.push_back({name, weight});
            QImage square(side, side, QImage::Format_Alpha8);
            square.fill(255);
            return square;
        });
        dial.set({.rpm = 3000, .target = 4000, .min = 1000, .max = 5000, .manual = true});
        dial.resize(dial.sizeHint());
    }
    ~FanDialSymbol() override { useSymbolShapes(nullptr); }

    std::vector<Asked> asked;
    FanDial dial;
};

} // namespace

TEST_F(FanDialSymbol, IsTheSystemsFanInMediumWeight) {
    imageOf(dial);
    EXPECT_EQ(asked, (std::vector<Asked>{{"fan", symbolWeight::medium}}));
}
