#include "TervaleWindow/Sensors/SensorsView.h"

#include "TervaleWindow/Controls/KeyTable.h"
#include "TervaleWindow/Controls/SearchField.h"
#include "TervaleWindow/Sensors/SensorList.h"

#include <QHideEvent>
#include <QKeyEvent>
#include <QShowEvent>

namespace tervale {

namespace {
/// Room around the row that the keyboard is at, enough for the header above a section's first one.
constexpr int rowSurroundings = 44;
} // namespace

SensorsView::SensorsView(Model& modelShown, QWidget* parent)
    : PaneFrame(QStringLiteral("Sensors"), parent),
      model(modelShown),
      catalog(model.sensors(), QLocale()),
      search(new SearchField(QStringLiteral("Filter sensors"))),
      list(new SensorList) {
    setSubtitle(QStringLiteral("Refreshed every 5 seconds"));
    header().addWidget(search);
    addPanel(list);
    connect(search, &QLineEdit::textChanged, this, &SensorsView::filter);
    connect(&model, &Model::readingsChanged, this, &SensorsView::update);
    connect(list, &SensorList::rowReached, this, [this](const QWidget& card, const QRect& row) {
        scrollTo(card, row, rowSurroundings);
    });
    update();
}

SensorsView::~SensorsView() {
    disappear();
}

void SensorsView::update() {
    const QString reason = search->text().isEmpty()
                               ? QStringLiteral("No temperature sensors.")
                               : QStringLiteral("No sensors match the filter.");
    list->setSections(catalog.sections(search->text(), model.readings()), reason);
}

void SensorsView::filter() {
    update();
    scrollToTop();
}

void SensorsView::find() {
    search->setFocus(Qt::ShortcutFocusReason);
    search->selectAll();
}

void SensorsView::appear() {
    onScreen = true;
    model.setSensorsVisible(true);
    model.readAllSensors();
}

void SensorsView::disappear() {
    if (onScreen)
        model.setSensorsVisible(false);
    onScreen = false;
}

// A window that is covered or minimised tells of it spontaneously; the pane stays on it.
void SensorsView::showEvent(QShowEvent* event) {
    PaneFrame::showEvent(event);
    if (!event->spontaneous())
        appear();
}

void SensorsView::hideEvent(QHideEvent* event) {
    PaneFrame::hideEvent(event);
    if (event->spontaneous())
        return;
    disappear();
    search->clear();
}

void SensorsView::keyPressEvent(QKeyEvent* event) {
    if (isKeyOf(KeyCommand::clearFilter, *event) && !search->text().isEmpty())
        search->clear();
    else if (isKeyOf(KeyCommand::enterSensors, *event) && search->hasFocus())
        list->setFocus(Qt::TabFocusReason);
    else
        PaneFrame::keyPressEvent(event);
}

} // namespace tervale
