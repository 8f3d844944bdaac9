// Renders the profiles pane in light and dark at twice the size, for a person to look at:
//     ProfilesGallery FOLDER

#include "Profiles/InProcessNotificationCenter.h"
#include "TervaleWindow/Appearance/Colors.h"
#include "TervaleWindow/Profiles/CurveCanvas.h"
#include "TervaleWindow/Profiles/ProfileDefaults.h"
#include "TervaleWindow/Profiles/ProfilesView.h"
#include "TervaleWindow/Style/WindowStyle.h"
#include "TervaleWindow/Support/ModelFixture.h"

#include <QApplication>
#include <QDir>
#include <QLineEdit>
#include <QListView>
#include <QScrollArea>
#include <QScrollBar>
#include <QTest>

using namespace tervale;

namespace {

UUID idOf(std::uint8_t number) {
    UUID id;
    id.bytes.back() = number;
    return id;
}

BridgeState usualState() {
    BridgeState state;
    state.profiles = {
        {idOf(1), "Quiet", kind::Load{ProfileDefaults::loadCurve()}},
        {idOf(2), "Temperature",
         kind::Temperature{{SensorGroup::cpu, true}, ProfileDefaults::temperatureCurve()}},
        {idOf(3), "Load", kind::Load{ProfileDefaults::loadCurve()}},
        {idOf(4), "Night",
         kind::Schedule{{{1380, 420, action::Automatic{}},
                         {540, 720, action::Fixed{0.4}},
                         {690, 1020, action::Profile{idOf(1)}}}}},
        {idOf(5), "", kind::Load{ProfileDefaults::loadCurve()}}};
    for (std::uint8_t number = 6; number < 9; ++number)
        state.profiles.push_back({idOf(number), "A profile whose name is much too long for its row",
                                  kind::Load{ProfileDefaults::loadCurve()}});
    state.profiles.push_back({idOf(9), "ملف ليلي 🌙", kind::Load{{{{50, 0.5}, {40, 0.5}}}}});
    return state;
}

struct Setting {
    QString name;
    QPalette palette;
    QSize size;
    Qt::LayoutDirection direction = Qt::LeftToRight;
    QLocale locale = QLocale(QLocale::German);
};

void save(QWidget& view, const QString& path) {
    QApplication::processEvents();
    QApplication::processEvents();
    view.grab().save(path + ".png");
}

void render(Model& model, Bridge& bridge, const Setting& setting, const QDir& folder) {
    QApplication::setPalette(setting.palette);
    QApplication::setLayoutDirection(setting.direction);
    QLocale::setDefault(setting.locale);
    ProfilesView view(model, bridge);
    view.setAutoFillBackground(true);
    view.resize(setting.size);
    view.show();
    view.activateWindow();
    auto* list = view.findChild<QListView*>();
    for (int row = 0; row < list->model()->rowCount(); ++row) {
        if (row > 3 && row < 8)
            continue;
        list->setCurrentIndex(list->model()->index(row, 0));
        save(view, folder.filePath(QString("%1-%2").arg(setting.name).arg(row)));
        auto* bar = view.findChild<QScrollArea*>()->verticalScrollBar();
        if (bar->maximum() > 0) {
            bar->setValue(bar->maximum());
            save(view, folder.filePath(QString("%1-%2-bottom").arg(setting.name).arg(row)));
        }
    }
    list->setCurrentIndex(list->model()->index(1, 0));
    view.findChild<CurveCanvas*>()->setFocus(Qt::TabFocusReason);
    QTest::keyClick(view.findChild<CurveCanvas*>(), Qt::Key_Right);
    save(view, folder.filePath(setting.name + "-focus"));
    list->selectionModel()->clear();
    save(view, folder.filePath(setting.name + "-empty"));
}

} // namespace

int main(int argumentCount, char** arguments) {
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    qputenv("QT_SCALE_FACTOR", "2");
    QApplication application(argumentCount, arguments);
    if (argumentCount < 2)
        return 1;
    QApplication::setStyle(new WindowStyle);
    FakeController controller;
    controller.set("Tp01", 58);
    InProcessNotificationCenter center;
    Bridge bridge(center);
    SettableClock clock;
    SettableVisibility visibility;
    Model model(controller, bridge, clock, visibility);
    bridge.publish(usualState());
    const QDir folder(QString::fromLocal8Bit(arguments[1]));
    const QLocale american(QLocale::English, QLocale::UnitedStates);
    render(model, bridge, {"light", lightPalette(), {790, 680}}, folder);
    render(model, bridge, {"dark", darkPalette(), {790, 680}}, folder);
    render(model, bridge, {"narrow", lightPalette(), {590, 520}}, folder);
    render(model, bridge, {"twelve", lightPalette(), {790, 680}, Qt::LeftToRight, american},
           folder);
    render(model, bridge, {"mirrored", lightPalette(), {790, 680}, Qt::RightToLeft}, folder);
    return 0;
}
