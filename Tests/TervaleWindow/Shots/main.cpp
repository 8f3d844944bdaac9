// Draws every pane and every control, light and dark, in the sizes and scales that matter, into PNG
// files; then once more in a stock style of the toolkit with the palette of a Mac.

#include "ControlsShots.h"
#include "Profiles/InProcessNotificationCenter.h"
#include "TervaleWindow/Shell/ContentView.h"
#include "TervaleWindow/Support/FakeController.h"
#include "TervaleWindow/Support/Look.h"
#include "TervaleWindow/Support/Settable.h"

#include <QApplication>
#include <QDateTime>
#include <QDir>
#include <QElapsedTimer>
#include <QListView>
#include <QLocale>
#include <QTextStream>

#include <functional>
#include <tuple>

using namespace tervale;

namespace {

constexpr UUID quietId{{1}};

std::vector<Profile> sampleProfiles() {
    const Curve curve{{{40, 0.1}, {60, 0.35}, {80, 0.75}, {95, 1.0}}};
    return {{quietId, "Quiet", kind::Temperature{{SensorGroup::ssd, false}, curve}},
            {UUID{{2}}, "Temperature", kind::Temperature{{SensorGroup::cpu, true}, curve}},
            {UUID{{3}}, "Load", kind::Load{{{{10, 0}, {50, 0.4}, {90, 1}}}}},
            {UUID{{4}}, "Night",
             kind::Schedule{{{1380, 420, action::Automatic{}},
                             {540, 720, action::Fixed{0.4}},
                             {690, 1020, action::Profile{quietId}}}}},
            {UUID{{5}}, "", kind::Load{{{{10, 0}, {90, 1}}}}}};
}

void fill(FakeController& controller) {
    controller.setFan(0, 2893, 3100, 1200, 5777, 1);
    controller.setFan(1, 2911, 3100, 1300, 6241, 1);
    const std::pair<const char*, double> sensors[]{
        {"Tp01", 57}, {"Tp05", 61}, {"Tp09", 71}, {"Tp0D", 60}, {"Tp0H", 57}, {"Te05", 50},
        {"Te0L", 50}, {"Tg05", 48}, {"Tg0D", 60}, {"Tg0L", 48}, {"Tm02", 45}, {"Tm06", 47},
        {"TH0x", 39}, {"TPD0", 63}, {"TVD0", 51}, {"TW0P", 41}, {"TaLP", 32}};
    for (const auto& [key, value] : sensors)
        controller.set(key, value);
}

/// One situation of the window.
struct Scene {
    QString name;
    Pane pane;
    QSize size;
    std::function<void(BridgeState&)> change;
    /// Without an agent there is no state at all.
    bool agent = true;
    /// The row that is chosen in the list of profiles.
    int profile = 0;
    Qt::LayoutDirection direction = Qt::LeftToRight;
};

std::vector<Scene> scenes() {
    const QSize usual(980, 680);
    const QSize smallest(780, 520);
    const QSize tall(980, 900);
    const auto nothing = [](BridgeState&) {};
    const auto timer = [](BridgeState& state) {
        state.timerAction = action::Fixed{0.5};
        state.selection = action::Automatic{};
        const QDateTime end(QDate(2026, 1, 15), QTime(14, 30));
        state.timerEnds =
            Date{static_cast<double>(end.toSecsSinceEpoch()) - Date::referenceSinceUnixEpoch};
    };
    std::vector<Scene> all;
    for (const Pane pane : allPanes) {
        all.push_back({title(pane).toLower(), pane, usual, nothing});
        all.push_back({title(pane).toLower() + "-small", pane, smallest, nothing});
    }
    all.push_back({"overview-tall", Pane::overview, tall, nothing});
    all.push_back({"overview-timer", Pane::overview, tall, timer});
    all.push_back({"overview-waiting", Pane::overview, tall, nothing, false});
    const auto profile = [&](const QString& name, const QSize& size, int row,
                             Qt::LayoutDirection direction = Qt::LeftToRight) {
        all.push_back({"profiles-" + name, Pane::profiles, size, nothing, true, row, direction});
    };
    profile("load", usual, 2);
    profile("schedule", usual, 3);
    profile("schedule-small", smallest, 3);
    profile("schedule-mirrored", usual, 3, Qt::RightToLeft);
    profile("problem", usual, 4);
    return all;
}

/// Lets animations come to their end.
void settle() {
    QElapsedTimer elapsed;
    elapsed.start();
    while (elapsed.elapsed() < 700)
        QApplication::processEvents(QEventLoop::AllEvents, 20);
}

void draw(const Scene& scene, const QString& path) {
    FakeController controller;
    fill(controller);
    InProcessNotificationCenter center;
    Bridge bridge(center);
    SettableClock clock;
    SettableVisibility visibility;
    Model model(controller, bridge, clock, visibility);
    if (scene.agent) {
        BridgeState state;
        state.selection = action::Fixed{0.5};
        state.profiles = sampleProfiles();
        state.launchAtLogin = true;
        scene.change(state);
        bridge.publish(state);
    }
    ContentView window(model, bridge, scene.pane);
    window.setLayoutDirection(scene.direction);
    for (auto* list : window.findChildren<QListView*>()) {
        if (list->accessibleName() == "Profiles")
            list->setCurrentIndex(list->model()->index(scene.profile, 0));
    }
    window.resize(scene.size);
    window.show();
    settle();
    if (!window.grab().save(path))
        qFatal("cannot write %s", qPrintable(path));
}

} // namespace

int main(int argumentCount, char** arguments) {
    QApplication application(argumentCount, arguments);
    QLocale::setDefault(QLocale(QLocale::English, QLocale::UnitedKingdom));
    const QDir folder(argumentCount > 1 ? QString::fromLocal8Bit(arguments[1]) : "shots");
    if (!folder.mkpath("."))
        qFatal("cannot make the folder %s", qPrintable(folder.path()));
    const QString scale = qApp->devicePixelRatio() > 1 ? "@2x" : "";
    for (const auto& [look, scheme, suffix] : {std::tuple(Look::own, Scheme::light, "-light"),
                                               {Look::own, Scheme::dark, "-dark"},
                                               {Look::stock, Scheme::light, "-stock-light"},
                                               {Look::stock, Scheme::dark, "-stock-dark"}}) {
        wear(look);
        QApplication::setPalette(paletteOf(look, scheme));
        const auto pathOf = [&folder, ending = suffix + scale](const QString& name) {
            const QString path = folder.filePath(name + ending + ".png");
            QTextStream(stdout) << path << '\n';
            return path;
        };
        for (const Scene& scene : scenes())
            draw(scene, pathOf(scene.name));
        drawControls(pathOf);
    }
    return 0;
}
