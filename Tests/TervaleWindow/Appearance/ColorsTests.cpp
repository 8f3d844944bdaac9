#include "TervaleWindow/Appearance/Colors.h"
#include "TervaleWindow/Appearance/Theme.h"
#include "TervaleWindow/Support/Contrast.h"

#include <QApplication>
#include <QEvent>
#include <QWidget>

#include <gtest/gtest.h>

#include <cstdlib>
#include <vector>

using namespace tervale;

namespace {

void expectNear(const QColor& color, QRgb expected) {
    EXPECT_LE(std::abs(color.red() - qRed(expected)), 1) << color.name().toStdString();
    EXPECT_LE(std::abs(color.green() - qGreen(expected)), 1) << color.name().toStdString();
    EXPECT_LE(std::abs(color.blue() - qBlue(expected)), 1) << color.name().toStdString();
}

QPalette plainPalette(const QColor& ground, const QColor& text) {
    QPalette palette(text, ground, ground, ground, ground, text, ground);
    palette.setColor(QPalette::Window, ground);
    return palette;
}

} // namespace

TEST(Colors, OfTheLightPalette) {
    const Colors colors = Colors::of(lightPalette());
    EXPECT_FALSE(colors.dark);
    expectNear(colors.window, 0xf4f4f6);
    expectNear(colors.sidebar, 0xe9e9ec);
    expectNear(colors.card, 0xffffff);
    expectNear(colors.label, 0x1d1d1f);
    expectNear(colors.control, 0xffffff);
    expectNear(onto(colors.card, colors.secondary), 0x7a7a7a);
    expectNear(onto(colors.card, colors.quaternary), 0xe8e8e8);
    expectNear(onto(colors.card, colors.line), 0xebebeb);
    expectNear(onto(colors.card, colors.controlLine), 0xdbdbdb);
    expectNear(onto(colors.card, colors.plot), 0xf9f9f9);
    expectNear(colors.warning, 0xd9730d);
    expectNear(colors.accentLabel, Theme::accent().rgb());
}

TEST(Colors, OfTheDarkPalette) {
    const Colors colors = Colors::of(darkPalette());
    EXPECT_TRUE(colors.dark);
    expectNear(colors.window, 0x1e1e20);
    expectNear(colors.sidebar, 0x28282b);
    expectNear(colors.card, 0x2a2a2d);
    expectNear(colors.label, 0xf5f5f7);
    expectNear(colors.control, 0x3a3a3e);
    expectNear(onto(colors.card, colors.secondary), 0xa1a1a3);
    expectNear(onto(colors.card, colors.quaternary), 0x444446);
    expectNear(onto(colors.card, colors.line), 0x3b3b3e);
    expectNear(onto(colors.card, colors.plot), 0x303033);
    expectNear(colors.warning, 0xff9f43);
    expectNear(colors.accentLabel, 0x5b9bff);
}

TEST(Colors, MakeNoCardDarkerThanADarkWindow) {
    QPalette palette = darkPalette();
    palette.setColor(QPalette::Window, QColor(0x32, 0x32, 0x32));
    palette.setColor(QPalette::Base, QColor(0x1e, 0x1e, 0x1e));
    const Colors colors = Colors::of(palette);
    EXPECT_GT(luminance(colors.card), luminance(colors.window));
    EXPECT_GE(contrast(colors.card, colors.label), 7);
}

class HighContrast : public testing::TestWithParam<QPalette> {};

TEST_P(HighContrast, KeepsEverythingReadable) {
    const Colors colors = Colors::of(GetParam());
    for (const QColor& ground : {colors.window, colors.card, colors.sidebar}) {
        EXPECT_GE(contrast(ground, colors.label), 15);
        EXPECT_GE(contrast(ground, colors.secondary), 7);
        EXPECT_GE(contrast(ground, colors.warning), 4.5);
        EXPECT_GE(contrast(ground, colors.accentLabel), 4.5);
    }
    EXPECT_GE(contrast(colors.card, colors.line), 3);
    EXPECT_GE(contrast(colors.card, colors.controlLine), 3);
    EXPECT_GE(contrast(onto(colors.card, colors.quaternary), colors.secondary), 4.5);
}

INSTANTIATE_TEST_SUITE_P(Colors, HighContrast,
                         testing::Values(plainPalette(Qt::white, Qt::black),
                                         plainPalette(Qt::black, Qt::white)));

/// A system that can be asked whether more contrast is wanted.
class SystemContrast : public testing::Test {
  protected:
    SystemContrast() {
        askForHighContrast([this] {
            ++asked;
            return increased;
        });
    }
    ~SystemContrast() override {
        askForHighContrast(nullptr);
        QApplication::setPalette(before);
    }

    /// The palette of a Mac with more contrast: black, but on a pale grey.
    const QPalette grey = plainPalette(QColor(0xec, 0xec, 0xec), Qt::black);
    const QPalette before = QApplication::palette();
    bool increased = true;
    int asked = 0;
};

TEST_F(SystemContrast, CountsWhateverThePalette) {
    const Colors high = Colors::of(grey);
    EXPECT_TRUE(high.highContrast);
    EXPECT_EQ(high.figure(45), high.label);
    increased = false;
    QApplication::setPalette(plainPalette(Qt::white, Qt::black));
    const Colors usual = Colors::of(QApplication::palette());
    EXPECT_FALSE(usual.highContrast);
    EXPECT_GT(high.line.alphaF(), usual.line.alphaF());
}

TEST_F(SystemContrast, IsAskedForOnlyWhenTheLooksChange) {
    for (int paint = 0; paint < 100; ++paint)
        Colors::of(grey);
    EXPECT_EQ(asked, 1);
    QApplication::setPalette(grey);
    EXPECT_EQ(asked, 2);
    QWidget window;
    QEvent theme(QEvent::ThemeChange);
    QApplication::sendEvent(&window, &theme);
    EXPECT_EQ(asked, 3);
}

TEST_F(SystemContrast, IsKnownBeforeAnyWidgetHearsOfThePalette) {
    /// Takes its colours when it hears of a palette.
    class Listener : public QWidget {
      public:
        std::vector<bool> heard;

      protected:
        void changeEvent(QEvent* event) override {
            if (event->type() == QEvent::PaletteChange)
                heard.push_back(Colors::of(palette()).highContrast);
        }
    };
    Listener listener;
    increased = false;
    listener.show();
    increased = false;
    QApplication::setPalette(grey);
    QApplication::processEvents();
    ASSERT_FALSE(listener.heard.empty());
    EXPECT_FALSE(listener.heard.front());
}

TEST(Colors, HaveTheContrastOfThePaletteWhereNoSystemIsAsked) {
    EXPECT_FALSE(Colors::of(plainPalette(QColor(0xec, 0xec, 0xec), Qt::black)).highContrast);
    EXPECT_TRUE(Colors::of(plainPalette(Qt::white, Qt::black)).highContrast);
}

TEST(Palettes, KeepTextReadableOnEveryGround) {
    for (const QPalette& palette : {lightPalette(), darkPalette()}) {
        EXPECT_GE(contrast(palette.color(QPalette::Window), palette.color(QPalette::WindowText)),
                  7);
        EXPECT_GE(contrast(palette.color(QPalette::Base), palette.color(QPalette::Text)), 7);
        EXPECT_GE(contrast(palette.color(QPalette::Button), palette.color(QPalette::ButtonText)),
                  7);
        EXPECT_GE(
            contrast(palette.color(QPalette::ToolTipBase), palette.color(QPalette::ToolTipText)),
            7);
        EXPECT_GE(
            contrast(palette.color(QPalette::Highlight), palette.color(QPalette::HighlightedText)),
            4.5);
    }
}

TEST(Palettes, DimWhatIsDisabled) {
    for (const QPalette& palette : {lightPalette(), darkPalette()}) {
        const QColor ground = palette.color(QPalette::Window);
        for (const QPalette::ColorRole role :
             {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
            EXPECT_LT(contrast(ground, palette.color(QPalette::Disabled, role)),
                      contrast(ground, palette.color(QPalette::Active, role)));
    }
}
