#include "TervaleWindow/Shots/Scenes.h"

#include "Profiles/InProcessNotificationCenter.h"
#include "TervaleWindow/Appearance/Colors.h"
#include "TervaleWindow/Appearance/Motion.h"
#include "TervaleWindow/Controls/ModeButton.h"
#include "TervaleWindow/Controls/SearchField.h"
#include "TervaleWindow/Controls/TabularLabel.h"
#include "TervaleWindow/Profiles/CurveCanvas.h"
#include "TervaleWindow/Support/Settable.h"

#include <QApplication>
#include <QDateTime>
#include <QElapsedTimer>
#include <QListView>
#include <QLocale>
#include <QMouseEvent>
#include <QThread>

#include <utility>

namespace tervale {

namespace {

constexpr UUID quietId{{1}};
constexpr QSize smallest(780, 520);
constexpr QSize tall(980, 900);

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

void startTimer(BridgeState& state) {
    state.timerAction = action::Fixed{0.5};
    state.selection = action::Automatic{};
    const QDateTime end(QDate(2026, 1, 15), QTime(14, 30));
    state.timerEnds =
        Date{static_cast<double>(end.toSecsSinceEpoch()) - Date::referenceSinceUnixEpoch};
}

/// Black on white, or white on black.
QPalette highContrast(bool dark) {
    QPalette palette = dark ? darkPalette() : lightPalette();
    const QColor ground = dark ? Qt::black : Qt::white;
    const QColor label = dark ? Qt::white : Qt::black;
    for (const QPalette::ColorRole role : {QPalette::Window, QPalette::Base, QPalette::Button})
        palette.setColor(role, ground);
    for (const QPalette::ColorRole role :
         {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
        palette.setColor(role, label);
    return palette;
}

/// Takes hold of a curve's second point and pulls it, without letting it go.
void dragAPoint(ContentView& window) {
    auto* canvas = window.findChild<CurveCanvas*>();
    const CurvePoint point = canvas->state().curve.points.at(1);
    const PlotPoint place = CurvePlot{canvas->plot(), canvas->state().range}.position(point);
    const auto send = [canvas](QEvent::Type type, QPointF at, Qt::MouseButton button) {
        QMouseEvent event(type, at, canvas->mapToGlobal(at), button, Qt::LeftButton, {});
        QApplication::sendEvent(canvas, &event);
    };
    const QPointF from(place.x, place.y);
    send(QEvent::MouseButtonPress, from, Qt::LeftButton);
    send(QEvent::MouseMove, from + QPointF(20, -18), Qt::NoButton);
    send(QEvent::MouseMove, from + QPointF(46, -41), Qt::NoButton);
}

void addOverviews(std::vector<Scene>& all) {
    all.push_back({.name = "overview-tall", .size = tall});
    all.push_back({.name = "overview-timer", .size = tall, .agent = &startTimer});
    all.push_back({.name = "overview-waiting", .size = tall, .hasAgent = false});
    all.push_back({.name = "overview-no-controller",
                   .machine = [](FakeController& machine) { machine.absent = true; }});
    all.push_back({.name = "overview-focus", .user = [](ContentView& window) {
                       window.findChildren<ModeButton*>().at(2)->setFocus(Qt::TabFocusReason);
                   }});
    all.push_back({.name = "overview-contrast", .palette = &highContrast});
}

void addProfiles(std::vector<Scene>& all) {
    const auto add = [&](const QString& name, int row, QSize size = {980, 680}) -> Scene& {
        return all.emplace_back(Scene{
            .name = "profiles-" + name, .pane = Pane::profiles, .size = size, .profile = row});
    };
    add("load", 2);
    add("schedule", 3);
    add("schedule-small", 3, smallest);
    add("schedule-mirrored", 3).direction = Qt::RightToLeft;
    add("problem", 4);
    add("dragging", 0).user = &dragAPoint;
    add("contrast", 1).palette = &highContrast;
}

/// The version is another with each build.
void writeNoVersion(ContentView& window) {
    for (auto* label : window.findChildren<TabularLabel*>()) {
        if (label->text().startsWith("0.") || label->text().startsWith("1."))
            label->setText("1.0 (1)");
    }
}

void choose(ContentView& window, int profile) {
    for (auto* list : window.findChildren<QListView*>()) {
        if (list->accessibleName() == "Profiles")
            list->setCurrentIndex(list->model()->index(profile, 0));
    }
}

} // namespace

void settle(QWidget& widget) {
    // The toolkit fades some buttons in, whatever it is told: two pictures a moment apart are the
    // same once all has come to rest.
    constexpr int mostTurns = 40;
    QImage last;
    for (int turn = 0; turn < mostTurns; ++turn) {
        QElapsedTimer moment;
        moment.start();
        // On a busy machine a moment alone may have passed with hardly an event.
        for (int events = 0; events < 6 || !moment.hasExpired(60); ++events) {
            QApplication::processEvents(QEventLoop::AllEvents, 10);
            QThread::msleep(10);
        }
        const QImage now = widget.grab().toImage();
        if (now == std::exchange(last, now))
            return;
    }
}

std::vector<Scene> allScenes() {
    std::vector<Scene> all;
    for (const Pane pane : allPanes) {
        all.push_back({.name = title(pane).toLower(), .pane = pane});
        all.push_back({.name = title(pane).toLower() + "-small", .pane = pane, .size = smallest});
    }
    addOverviews(all);
    all.push_back({.name = "sensors-empty", .pane = Pane::sensors, .user = [](ContentView& window) {
                       window.findChild<SearchField*>()->setText("no such sensor");
                   }});
    addProfiles(all);
    return all;
}

void holdStill() {
    QLocale::setDefault(QLocale(QLocale::English, QLocale::UnitedKingdom));
    QApplication::setLayoutDirection(Qt::LeftToRight);
    askForReducedMotion([] { return true; });
    QApplication::setCursorFlashTime(0);
}

QImage draw(const Scene& scene, const QPalette& palette, bool dark) {
    QApplication::setPalette(scene.palette ? scene.palette(dark) : palette);
    FakeController controller;
    fill(controller);
    if (scene.machine)
        scene.machine(controller);
    InProcessNotificationCenter center;
    Bridge bridge(center);
    SettableClock clock;
    SettableVisibility visibility;
    Model model(controller, bridge, clock, visibility);
    if (scene.hasAgent) {
        BridgeState state;
        state.selection = action::Fixed{0.5};
        state.profiles = sampleProfiles();
        state.launchAtLogin = true;
        if (scene.agent)
            scene.agent(state);
        bridge.publish(state);
    }
    ContentView window(model, bridge, scene.pane);
    window.setLayoutDirection(scene.direction);
    choose(window, scene.profile);
    writeNoVersion(window);
    window.resize(scene.size);
    window.show();
    window.activateWindow();
    settle(window);
    if (scene.user)
        scene.user(window);
    settle(window);
    return window.grab().toImage();
}

} // namespace tervale
