#include "TervaleWindow/Accessibility/AccessibleReading.h"

#include <gtest/gtest.h>

using namespace tervale;

TEST(AccessibleReading, IsATextToWhoReadsTextsAndANumberToWhoReadsNumbers) {
    const QVariant reading = accessibleReading(2893.4375, "2893 rpm");
    EXPECT_EQ(reading.toString(), "2893 rpm");
    ASSERT_TRUE(reading.canConvert<double>());
    EXPECT_EQ(reading.toDouble(), 2893.4375);
}
