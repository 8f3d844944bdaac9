#include "TervaleWindow/Appearance/Colors.h"
#include "TervaleWindow/Appearance/Fonts.h"
#include "TervaleWindow/Appearance/Theme.h"
#include "TervaleWindow/Shell/ContentView.h"
#include "TervaleWindow/Shell/SystemAppearance.h"
#include "TervaleWindow/Style/WindowStyle.h"
#include "TervaleWindow/Support/Look.h"
#include "TervaleWindow/Support/ModelFixture.h"

#include <QApplication>
#include <QLabel>
#include <QPushButton>

#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <utility>

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
    void SetUp() override { useSystemAppearance(*qApp, ControlDrawing::window, nullptr); }
};

/// The window on a desktop that says what a test has it say.
class SystemLook : public ModelFixture {
  protected:
    using Scheme = DesktopLook::Scheme;

    ~SystemLook() override {
        view.reset();
        // Nobody is asked any more.
        useSystemAppearance(*qApp, ControlDrawing::window, nullptr);
        wear(lookUnderTest());
    }
    void open(const QPalette& toolkits) {
        QApplication::setStyle(QStringLiteral("Fusion"));
        QApplication::setPalette(toolkits);
        useSystemAppearance(*qApp, ControlDrawing::window, [this](std::function<void()> changed) {
            tell = std::move(changed);
            return std::function<DesktopLook()>([this] { return look; });
        });
        makeModel();
        view = std::make_unique<ContentView>(*model, bridge);
        view->resize(980, 680);
        view->show();
        QApplication::processEvents();
    }
    /// On a toolkit that knows of no desktop.
    void open() { open(QPalette()); }
    void say(const DesktopLook& next) {
        look = next;
        tell();
        QApplication::processEvents();
    }
    /// As it is painted, beside the title of the pane.
    QColor ground() { return view->grab().toImage().pixelColor(600, 26); }

    DesktopLook look;
    std::function<void()> tell;
    std::unique_ptr<ContentView> view;
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
    useSystemAppearance(*qApp, ControlDrawing::window, nullptr);
    EXPECT_TRUE(qgetenv(fontEngine).startsWith("cff:darkening-parameters="));
    const QByteArray chosen = "truetype:interpreter-version=35";
    qputenv(fontEngine, chosen);
    useSystemAppearance(*qApp, ControlDrawing::window, nullptr);
    EXPECT_TRUE(qgetenv(fontEngine).startsWith(chosen + " cff:darkening-parameters="));
    const QByteArray weight = "cff:darkening-parameters=500,400,1000,200,1500,100,2000,0";
    qputenv(fontEngine, weight);
    useSystemAppearance(*qApp, ControlDrawing::window, nullptr);
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

TEST_F(SystemLook, IsLightWhereTheDesktopSaysNothing) {
    open();
    EXPECT_EQ(ground(), lightPalette().color(QPalette::Window));
}

TEST_F(SystemLook, FollowsTheSchemeThatTheDesktopAsksFor) {
    look.scheme = Scheme::dark;
    open();
    EXPECT_EQ(ground(), darkPalette().color(QPalette::Window));
    say({Scheme::light});
    EXPECT_EQ(ground(), lightPalette().color(QPalette::Window));
    say({Scheme::dark});
    EXPECT_EQ(ground(), darkPalette().color(QPalette::Window));
    say({});
    EXPECT_EQ(ground(), lightPalette().color(QPalette::Window));
}

TEST_F(SystemLook, IsBlackAndWhiteInHighContrast) {
    open();
    say({.highContrast = true});
    EXPECT_EQ(ground(), QColor(Qt::white));
    EXPECT_TRUE(Colors::of(view->palette()).highContrast);
    say({Scheme::dark, true});
    EXPECT_EQ(ground(), QColor(Qt::black));
    EXPECT_TRUE(Colors::of(view->palette()).highContrast);
    say({Scheme::dark});
    EXPECT_EQ(ground(), darkPalette().color(QPalette::Window));
    EXPECT_FALSE(Colors::of(view->palette()).highContrast);
}

TEST_F(SystemLook, LeavesAToolkitsOwnPaletteAndTakesTheContrastBesideIt) {
    look.scheme = Scheme::dark;
    // Whatever the toolkit's style does not bring.
    open(lightPalette());
    const QColor toolkits = ground();
    EXPECT_NE(toolkits, darkPalette().color(QPalette::Window));
    EXPECT_FALSE(Colors::of(view->palette()).highContrast);
    say({Scheme::dark, true});
    EXPECT_EQ(ground(), toolkits);
    EXPECT_TRUE(Colors::of(view->palette()).highContrast);
    say({});
    EXPECT_FALSE(Colors::of(view->palette()).highContrast);
}

TEST_F(SystemLook, GivesWayToAPaletteThatIsSetByHand) {
    look.scheme = Scheme::dark;
    open();
    QApplication::setPalette(lightPalette());
    QApplication::processEvents();
    EXPECT_EQ(ground(), lightPalette().color(QPalette::Window));
}
