#include "TervaleWindow/Appearance/Fonts.h"
#include "TervaleWindow/Controls/Card.h"
#include "TervaleWindow/Controls/Divider.h"
#include "TervaleWindow/Controls/SymbolLabel.h"
#include "TervaleWindow/Controls/TabularLabel.h"
#include "TervaleWindow/Controls/TextLabel.h"
#include "TervaleWindow/Support/ControlsFixture.h"

#include <QBoxLayout>

using namespace tervale;

namespace {

using LabelTest = ControlsFixture;

constexpr const char* longText = "A name that is much longer than its place, and a bit more still";

/// The columns from the left at which anything is drawn on the window's ground.
std::pair<int, int> inkedColumns(QWidget& widget) {
    const QImage image = widget.grab().toImage();
    const QColor ground = image.pixelColor(0, 0);
    int first = image.width();
    int last = -1;
    for (int x = 0; x < image.width(); ++x) {
        for (int y = 0; y < image.height(); ++y) {
            if (!isClose(image.pixelColor(x, y), ground, 20)) {
                first = std::min(first, x);
                last = std::max(last, x);
            }
        }
    }
    return {first, last};
}

int darkest(QWidget& widget) {
    const QImage image = widget.grab().toImage();
    int value = 255;
    for (int x = 0; x < image.width(); ++x) {
        for (int y = 0; y < image.height(); ++y)
            value = std::min(value, image.pixelColor(x, y).lightness());
    }
    return value;
}

} // namespace

TEST_F(LabelTest, ATextKeepsItsLineHeight) {
    EXPECT_EQ(TextLabel("Name").sizeHint().height(), 18);
    EXPECT_EQ(TextLabel("Note", TextStyle::caption()).sizeHint().height(), 14);
}

TEST_F(LabelTest, ATextAsksForItsWidthUnlessItMayBeShortened) {
    TextLabel label(longText);
    EXPECT_EQ(label.minimumSizeHint(), label.sizeHint());
    label.setOverflow(Overflow::elide);
    EXPECT_LT(label.minimumSizeHint().width(), 80);
    label.resize(100, 18);
    const auto [first, last] = inkedColumns(label);
    EXPECT_LE(last, 100);
    EXPECT_GT(last, 70);
    EXPECT_EQ(accessible(label)->text(QAccessible::Name), longText);
}

TEST_F(LabelTest, ATextWrapsIntoAsManyLinesAsItNeeds) {
    TextLabel label(longText);
    label.setOverflow(Overflow::wrap);
    const int whole = label.sizeHint().width();
    EXPECT_EQ(label.heightForWidth(whole + 10), 18);
    EXPECT_EQ(label.heightForWidth(whole * 2 / 3), 36);
    // A word that is too long is broken.
    TextLabel word(QString(60, u'w'));
    word.setOverflow(Overflow::wrap);
    EXPECT_GE(word.heightForWidth(100), 5 * 18);
}

TEST_F(LabelTest, ATextFollowsEveryChangeOfWhatItsSizeDependsOn) {
    TextLabel label("One two three four five");
    label.setOverflow(Overflow::wrap);
    const auto height = [&](int width) { return label.heightForWidth(width); };
    const QSize wide = label.sizeHint();
    const int low = height(wide.width());
    // More widths than are remembered, and the first again.
    for (int width = 20; width <= 120; width += 10)
        EXPECT_GE(height(width), height(width + 10)) << width;
    EXPECT_EQ(height(wide.width()), low);
    EXPECT_GT(height(wide.width() / 2), low);

    label.setText("One two three four five six seven");
    EXPECT_GT(label.sizeHint().width(), wide.width());
    EXPECT_GT(height(wide.width()), low);

    label.setText("One two three four five");
    EXPECT_EQ(label.sizeHint(), wide);
    QFont larger = label.font();
    larger.setPixelSize(larger.pixelSize() * 2);
    label.setFont(larger);
    EXPECT_GT(label.sizeHint().width(), wide.width());
    EXPECT_GT(height(wide.width()), low);
}

TEST_F(LabelTest, ATextTakesNothingForMarkup) {
    TextLabel plain("<b>Night</b>");
    EXPECT_GT(plain.sizeHint().width(), TextLabel("Night").sizeHint().width() + 20);
}

TEST_F(LabelTest, ATextStartsAtTheRightWhereTextRunsFromThere) {
    TextLabel label("Profile");
    label.resize(200, 18);
    EXPECT_LT(inkedColumns(label).second, 100);
    label.setLayoutDirection(Qt::RightToLeft);
    EXPECT_GT(inkedColumns(label).first, 100);
}

TEST_F(LabelTest, ColoursFollowThePaletteAtOnce) {
    TextLabel label("Profile");
    EXPECT_LT(darkest(label), 60);
    wear(darkLook());
    QImage image = label.grab().toImage();
    EXPECT_TRUE(isClose(image.pixelColor(image.width() - 1, 0), Colors::of(darkLook()).window));
    EXPECT_GE(darkest(label), Colors::of(darkLook()).window.lightness() - 1);
    const Colors dark = Colors::of(label.palette());
    EXPECT_EQ(color(TextColor::label, dark), dark.label);
    EXPECT_EQ(color(TextColor::secondary, dark), dark.secondary);
    EXPECT_EQ(color(TextColor::warning, dark), QColor(0xff9f43));
    EXPECT_EQ(color(QColor(1, 2, 3), dark), QColor(1, 2, 3));
}

TEST_F(LabelTest, FiguresKeepTheirWidthWhileTheyChange) {
    TabularLabel label(roundedFont(15));
    label.setText("111%");
    const QSize narrow = label.sizeHint();
    label.setText("888%");
    EXPECT_EQ(label.sizeHint(), narrow);
    EXPECT_EQ(accessible(label)->text(QAccessible::Name), "888%");
}

TEST_F(LabelTest, FiguresAreAlignedAndMirrored) {
    TabularLabel label(roundedFont(15));
    label.setText("50%");
    label.setAlignment(Qt::AlignTrailing | Qt::AlignVCenter);
    label.resize(200, 20);
    EXPECT_GT(inkedColumns(label).first, 100);
    label.setLayoutDirection(Qt::RightToLeft);
    EXPECT_LT(inkedColumns(label).second, 100);
}

TEST_F(LabelTest, FiguresTakeAColourOfTheirOwn) {
    TabularLabel label(roundedFont(40, QFont::Bold), QColor(200, 0, 0));
    label.setText("8");
    const QImage image = label.grab().toImage();
    bool found = false;
    for (int x = 0; x < image.width(); ++x) {
        for (int y = 0; y < image.height(); ++y)
            found = found || isClose(image.pixelColor(x, y), QColor(200, 0, 0));
    }
    EXPECT_TRUE(found);
}

TEST_F(LabelTest, ASymbolStandsBesideItsTextAndMirrors) {
    SymbolLabel label(Symbol::exclamationTriangle, "Windows overlap.", TextColor::warning);
    label.resize(label.sizeHint());
    label.show();
    QApplication::processEvents();
    auto* symbol = label.findChild<SymbolView*>();
    auto* text = label.findChild<TextLabel*>();
    EXPECT_EQ(text->x() - symbol->geometry().right() - 1, SymbolLabel::spacing);
    label.setLayoutDirection(Qt::RightToLeft);
    QApplication::processEvents();
    EXPECT_GT(symbol->x(), text->geometry().right());
    EXPECT_EQ(label.text(), "Windows overlap.");
}

TEST_F(LabelTest, AWrappedTextMakesItsRowTaller) {
    SymbolLabel label(Symbol::exclamationTriangle, longText);
    label.setOverflow(Overflow::wrap);
    EXPECT_GE(label.heightForWidth(150), 3 * 18);
    label.resize(150, label.heightForWidth(150));
    label.show();
    QApplication::processEvents();
    // The symbol is level with the letters of the first line, whose middle is below the line's.
    const QRect symbol = label.findChild<SymbolView*>()->geometry();
    EXPECT_GE(symbol.center().y(), 9);
    EXPECT_LT(symbol.bottom(), 18);
}

TEST_F(LabelTest, ACardKeepsItsContentsAtItsPadding) {
    Card card;
    auto* layout = new QVBoxLayout(&card);
    layout->setContentsMargins(0, 0, 0, 0);
    auto* content = new QWidget;
    layout->addWidget(content);
    card.resize(200, 102);
    card.show();
    QApplication::processEvents();
    EXPECT_EQ(card.panel(), card.rect().adjusted(0, 0, 0, -Card::shadowHeight));
    const auto padding = [&] {
        QApplication::processEvents();
        const QRect inside = content->geometry();
        const QRect panel = card.panel();
        return QMargins(inside.left() - panel.left(), inside.top() - panel.top(),
                        panel.right() - inside.right(), panel.bottom() - inside.bottom());
    };
    const QMargins usual = padding();
    card.setPadding({0, 0, 0, 0});
    const QMargins hairline(1, 1, 1, 1);
    EXPECT_EQ(padding(), hairline);
    EXPECT_EQ(usual, QMargins(18, 16, 18, 16) + hairline);
    card.setPadding({7, 5, 3, 2});
    EXPECT_EQ(padding(), QMargins(7, 5, 3, 2) + hairline);
}

TEST_F(LabelTest, ACardIsARoundedPanelInLightAndDark) {
    Card card;
    card.resize(200, 102);
    for (const QPalette& palette : {lightLook(), darkLook()}) {
        wear(palette);
        const Colors colors = Colors::of(palette);
        EXPECT_TRUE(isClose(pixel(card, {100, 50}), colors.card));
        EXPECT_TRUE(isClose(pixel(card, {0, 50}), onto(colors.card, colors.line)));
        EXPECT_TRUE(isClose(pixel(card, {0, 0}), colors.window));
    }
    EXPECT_TRUE(isClose(pixel(card, {100, 101}), Colors::of(darkLook()).window));
}

TEST_F(LabelTest, ADividerIsAHairline) {
    Divider horizontal;
    Divider vertical(Qt::Vertical);
    EXPECT_EQ(horizontal.maximumHeight(), 1);
    EXPECT_EQ(vertical.maximumWidth(), 1);
    horizontal.resize(20, 1);
    const Colors colors = Colors::of(lightLook());
    EXPECT_TRUE(isClose(pixel(horizontal, {10, 0}), onto(colors.window, colors.line)));
}
