#include "TervaleWindow/Controls/Card.h"
#include "TervaleWindow/Controls/Divider.h"
#include "TervaleWindow/Controls/SymbolView.h"
#include "TervaleWindow/Controls/TextLabel.h"
#include "TervaleWindow/Shots/ExactPicture.h"
#include "TervaleWindow/Shots/PictureComparison.h"
#include "TervaleWindow/Shots/Scenes.h"
#include "TervaleWindow/Support/Look.h"

#include <QEvent>

#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <iterator>
#include <string>
#include <tuple>

using namespace tervale;

namespace {

/// Keeps a widget from painting itself; what lies on it is painted.
class Unpainted final : public QObject {
  public:
    explicit Unpainted(QWidget& widget) : QObject(&widget) { widget.installEventFilter(this); }
    bool eventFilter(QObject*, QEvent* event) override { return event->type() == QEvent::Paint; }
};

template <class Widget>
Widget& firstInSight(ContentView& window) {
    for (auto* widget : window.findChildren<Widget*>()) {
        if (!widget->visibleRegion().isEmpty())
            return *widget;
    }
    qFatal("there is no such widget in the scene");
}

void paintNoHairline(ContentView& window) {
    new Unpainted(firstInSight<Divider>(window));
}

void paintNoCard(ContentView& window) {
    new Unpainted(firstInSight<Card>(window));
}

/// The card keeps its line.
void giveACardTheGroundOfTheWindow(ContentView& window) {
    auto& card = firstInSight<Card>(window);
    QPalette palette = card.palette();
    palette.setColor(QPalette::Base, palette.color(QPalette::Window));
    card.setPalette(palette);
}

void lowerATextByOnePixel(ContentView& window) {
    auto& text = firstInSight<TextLabel>(window);
    text.move(text.pos() + QPoint(0, 1));
}

void paleAText(ContentView& window) {
    firstInSight<TextLabel>(window).setForeground(TextColor::secondary);
}

/// Another by a single stroke.
void showAnotherSymbol(ContentView& window) {
    firstInSight<SymbolView>(window).setSymbol(Symbol::fanSlash);
}

void thickenASymbol(ContentView& window) {
    firstInSight<SymbolView>(window).setWeight(symbolWeight::medium);
}

struct Defect {
    const char* name;
    /// In which it shows.
    const char* scene;
    void (*damage)(ContentView&);
};

constexpr Defect defects[]{
    {"NoHairline", "profiles", &paintNoHairline},
    {"NoCard", "overview", &paintNoCard},
    {"NoGroundOfACard", "settings", &giveACardTheGroundOfTheWindow},
    {"ATextOnePixelLower", "settings", &lowerATextByOnePixel},
    {"APalerText", "settings", &paleAText},
    {"AnotherSymbol", "overview", &showAnotherSymbol},
    {"AThickerSymbol", "overview", &thickenASymbol},
};

Scene sceneNamed(const char* name) {
    const auto all = allScenes();
    const auto found = std::ranges::find(all, QString(name), &Scene::name);
    if (found == all.end())
        qFatal("there is no scene %s", name);
    return *found;
}

QImage picture(const Scene& scene, Scheme scheme) {
    holdStill();
    return draw(scene, paletteOf(Look::own, scheme), scheme == Scheme::dark);
}

std::string nameOf(Scheme scheme) {
    return scheme == Scheme::dark ? "Dark" : "Light";
}

} // namespace

class Defects : public testing::TestWithParam<std::tuple<Scheme, std::size_t>> {};

TEST_P(Defects, AreFoundByTheComparison) {
    const auto [scheme, index] = GetParam();
    const Defect& defect = defects[index];
    Scene scene = sceneNamed(defect.scene);
    const QImage sound = picture(scene, scheme);
    scene.user = defect.damage;
    const PictureComparison comparison = compare(sound, picture(scene, scheme));
    EXPECT_TRUE(comparison.sameSize);
    EXPECT_GT(comparison.differing, 0);
    EXPECT_FALSE(comparison.passes());
}

INSTANTIATE_TEST_SUITE_P(Shots, Defects,
                         testing::Combine(testing::Values(Scheme::light, Scheme::dark),
                                          testing::Range(std::size_t{0}, std::size(defects))),
                         [](const auto& test) {
                             return defects[std::get<1>(test.param)].name +
                                    nameOf(std::get<0>(test.param));
                         });

class SoundScenes : public testing::TestWithParam<Scheme> {};

TEST_P(SoundScenes, AreDrawnTheSameEachTime) {
    for (const char* name : {"overview", "sensors", "profiles", "settings"}) {
        const Scene scene = sceneNamed(name);
        EXPECT_TRUE(samePixels(picture(scene, GetParam()), picture(scene, GetParam()))) << name;
    }
}

INSTANTIATE_TEST_SUITE_P(Shots, SoundScenes, testing::Values(Scheme::light, Scheme::dark),
                         [](const auto& test) { return nameOf(test.param); });
