#include "TervaleWindow/Appearance/Fonts.h"
#include "TervaleWindow/Appearance/Theme.h"
#include "TervaleWindow/Shell/SystemAppearance.h"
#include "TervaleWindow/Style/WindowStyle.h"

#include <QApplication>
#include <QLabel>
#include <QPushButton>

#include <gtest/gtest.h>

using namespace tervale;

namespace {

constexpr const char* fontEngine = "FREETYPE_PROPERTIES";

/// Gives the variable its value back.
class KeptFontEngine {
  public:
    ~KeptFontEngine() { qputenv(fontEngine, before); }

  private:
    QByteArray before = qgetenv(fontEngine);
};

} // namespace

class SystemAppearance : public testing::Test {
  protected:
    void SetUp() override { useSystemAppearance(*qApp, ControlDrawing::window); }
};

TEST_F(SystemAppearance, GivesButtonsTheirOwnWeight) {
    QPushButton button("Save");
    QLabel label("Name");
    button.ensurePolished();
    label.ensurePolished();
    EXPECT_EQ(button.font(), systemFont(fontSize::body, QFont::Medium));
    EXPECT_EQ(label.font(), systemFont(fontSize::body));
}

TEST_F(SystemAppearance, LeavesStylePaletteAndFontsToASystemThatDrawsItsControls) {
    QApplication::setStyle(QStringLiteral("Fusion"));
    QPalette palette;
    palette.setColor(QPalette::Highlight, Qt::red);
    QApplication::setPalette(palette);
    QApplication::setFont(QFont("Monospace", 17));
    useSystemAppearance(*qApp, ControlDrawing::system);
    EXPECT_EQ(qobject_cast<WindowStyle*>(QApplication::style()), nullptr);
    EXPECT_EQ(QApplication::palette().color(QPalette::Highlight), QColor(Qt::red));
    EXPECT_EQ(QApplication::font().pointSize(), 17);
}

TEST_F(SystemAppearance, HasTheFontEngineKeepTheWeightOfFonts) {
    const KeptFontEngine kept;
    qunsetenv(fontEngine);
    useSystemAppearance(*qApp, ControlDrawing::window);
    EXPECT_TRUE(qgetenv(fontEngine).startsWith("cff:darkening-parameters="));
    const QByteArray chosen = "truetype:interpreter-version=35";
    qputenv(fontEngine, chosen);
    useSystemAppearance(*qApp, ControlDrawing::window);
    EXPECT_TRUE(qgetenv(fontEngine).startsWith(chosen + " cff:darkening-parameters="));
    const QByteArray weight = "cff:darkening-parameters=500,400,1000,200,1500,100,2000,0";
    qputenv(fontEngine, weight);
    useSystemAppearance(*qApp, ControlDrawing::window);
    EXPECT_EQ(qgetenv(fontEngine), weight);
}

TEST_F(SystemAppearance, LeavesTheFontEngineAloneWhereTheSystemDraws) {
    const KeptFontEngine kept;
    qunsetenv(fontEngine);
    useSystemAppearance(*qApp, ControlDrawing::system);
    EXPECT_FALSE(qEnvironmentVariableIsSet(fontEngine));
}

TEST_F(SystemAppearance, MarksWhatIsSelectedInTheAccentColor) {
    EXPECT_EQ(QApplication::palette().color(QPalette::Highlight), Theme::accent());
    EXPECT_EQ(QApplication::palette().color(QPalette::HighlightedText), QColor(Qt::white));
}

TEST_F(SystemAppearance, TurnsAMaskIntoOpacityRowByRow) {
    const QImage image = imageOf({3, {0, 255, 0, 10, 20, 30, 0, 0, 128}});
    EXPECT_EQ(image.size(), QSize(3, 3));
    EXPECT_EQ(qAlpha(image.pixel(1, 0)), 255);
    EXPECT_EQ(qAlpha(image.pixel(2, 1)), 30);
    EXPECT_EQ(qAlpha(image.pixel(2, 2)), 128);
    EXPECT_EQ(qAlpha(image.pixel(0, 2)), 0);
}
