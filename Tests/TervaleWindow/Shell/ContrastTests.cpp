#include "TervaleWindow/Appearance/Colors.h"
#include "TervaleWindow/Appearance/Theme.h"
#include "TervaleWindow/Shell/ContentView.h"
#include "TervaleWindow/Style/WindowStyle.h"
#include "TervaleWindow/Support/ModelFixture.h"
#include "TervaleWindow/Support/PaintedTexts.h"

#include <QApplication>
#include <QListView>
#include <QTest>

using namespace tervale;

namespace {

/// As a desktop's high contrast sets it.
QPalette highContrast(QPalette palette, const QColor& ground, const QColor& text) {
    for (const QPalette::ColorRole role :
         {QPalette::Window, QPalette::Base, QPalette::Button, QPalette::ToolTipBase})
        palette.setColor(role, ground);
    for (const QPalette::ColorRole role :
         {QPalette::WindowText, QPalette::Text, QPalette::ButtonText, QPalette::ToolTipText})
        palette.setColor(QPalette::Active, role, text);
    for (const QPalette::ColorRole role :
         {QPalette::WindowText, QPalette::Text, QPalette::ButtonText, QPalette::ToolTipText})
        palette.setColor(QPalette::Inactive, role, text);
    return palette;
}

} // namespace

class Contrast : public ModelFixture {
  protected:
    Contrast() {
        QApplication::setStyle(new WindowStyle);
        controller.setFan(0, 2893, 3100, 1200, 5777, 1);
        controller.setFan(1, 2911, 3100, 1300, 6241);
        // Along the whole ramp.
        controller.set("Tp01", 31);
        controller.set("Tp05", 85);
        controller.set("Tg05", 92);
        controller.set("Tm02", 47);
        controller.set("TB0T", 66);
        makeModel();
        view = std::make_unique<ContentView>(*model, bridge);
        // Tall enough for every pane to show all that it has.
        view->resize(980, 2400);
        view->show();
        BridgeState state;
        state.profiles = {
            {UUID{{1}}, "Quiet", kind::Temperature{.input = {}, .curve = {{{40, 0.1}, {80, 1}}}}},
            {UUID{{2}}, "Loud", kind::Load{{{{0, 0.1}, {100, 1}}}}},
            {UUID{{3}}, "Night", kind::Schedule{{{0, 420, action::Fixed{0.3}}}}},
            {UUID{{4}}, "Without a point", kind::Load{}},
        };
        state.status = "The agent says something.";
        state.timerAction = action::Profile{UUID{{1}}};
        state.timerEnds = Date{0};
        publish(state);
    }
    ~Contrast() override { QApplication::setPalette(lightPalette()); }

    void wear(const QPalette& palette) {
        QApplication::setPalette(palette);
        QApplication::processEvents();
    }
    void show(Pane pane) {
        view->setSection(pane);
        QApplication::processEvents();
    }
    bool isDisabled(const PaintedText& text) const {
        const QWidget* at = view->childAt(text.place.center());
        return at && !at->isEnabled();
    }
    /// Of all texts but the disabled ones, which are pale on purpose.
    void expectReadable(const char* what) {
        const QImage picture = view->grab().toImage();
        const auto texts = paintedTexts(*view);
        ASSERT_GT(texts.size(), 10u) << what;
        for (const PaintedText& text : texts) {
            if (isDisabled(text))
                continue;
            EXPECT_GE(contrast(text, picture), 4.5)
                << what << ": " << text.text.toStdString() << " in "
                << text.color.name(QColor::HexArgb).toStdString();
        }
    }
    std::vector<PaintedText> find(const QString& sought) {
        std::vector<PaintedText> found;
        for (const PaintedText& text : paintedTexts(*view)) {
            if (text.text.contains(sought))
                found.push_back(text);
        }
        return found;
    }

    std::unique_ptr<ContentView> view;
};

class HighContrastPanes : public Contrast, public testing::WithParamInterface<bool> {
  protected:
    HighContrastPanes() {
        wear(GetParam() ? highContrast(darkPalette(), Qt::black, Qt::white)
                        : highContrast(lightPalette(), Qt::white, Qt::black));
    }
};

TEST_P(HighContrastPanes, ShowEveryTextAtLeastFourAndAHalfTimesAsLightOrDarkAsItsGround) {
    for (const Pane pane : {Pane::overview, Pane::sensors, Pane::settings}) {
        show(pane);
        expectReadable(title(pane).toStdString().c_str());
    }
}

TEST_P(HighContrastPanes, ShowEveryKindOfProfileSo) {
    show(Pane::profiles);
    auto* list = view->detail()->findChild<QListView*>();
    ASSERT_NE(list, nullptr);
    list->setFocus();
    QTest::keyClick(list, Qt::Key_Home);
    for (int row = 0; row < list->model()->rowCount(); ++row) {
        expectReadable(list->currentIndex().data().toString().toStdString().c_str());
        QTest::keyClick(list, Qt::Key_Down);
        QApplication::processEvents();
    }
}

INSTANTIATE_TEST_SUITE_P(Shell, HighContrastPanes, testing::Bool(), [](const auto& test) {
    return std::string(test.param ? "Dark" : "Light");
});

TEST_F(Contrast, LeavesTheRampToTheFiguresOtherwise) {
    for (const QPalette& palette : {lightPalette(), darkPalette()}) {
        wear(palette);
        for (const Pane pane : {Pane::overview, Pane::sensors}) {
            show(pane);
            bool ramp = false;
            // The digits are painted one by one.
            for (const PaintedText& figure : find("°C"))
                ramp = ramp || figure.color.rgb() == Theme::thermal(92).rgb();
            EXPECT_TRUE(ramp) << title(pane).toStdString();
        }
    }
}
