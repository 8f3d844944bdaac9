#include "TervaleWindow/Profiles/CurveEditor.h"

#include <QLabel>

#include <gtest/gtest.h>

namespace tervale {
namespace {

QStringList textsOf(const QWidget& widget) {
    QStringList texts;
    for (const QLabel* label : widget.findChildren<QLabel*>())
        texts.push_back(label->text());
    return texts;
}

TEST(CurveEditorCaptions, NameTheAxesAndHelp) {
    const CurveEditor temperature({20, 110}, QStringLiteral("°C"), {12, 40, 26, 14});
    EXPECT_EQ(textsOf(temperature),
              (QStringList{"Fan speed", "Temperature",
                           "Drag a point to move it. Click empty space to add one, double-click a "
                           "point to remove it."}));
    const CurveEditor load({0, 100}, QStringLiteral("%"), {12, 40, 26, 14});
    EXPECT_TRUE(textsOf(load).contains("Load"));
    EXPECT_FALSE(textsOf(load).contains("Temperature"));
}

} // namespace
} // namespace tervale
