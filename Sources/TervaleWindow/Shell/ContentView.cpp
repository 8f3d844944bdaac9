#include "TervaleWindow/Shell/ContentView.h"

#include "Base/Precondition.h"
#include "Platform/Platform.h"
#include "TervaleWindow/Accessibility/AccessibleFactory.h"
#include "TervaleWindow/Overview/OverviewView.h"
#include "TervaleWindow/Profiles/ProfilesView.h"
#include "TervaleWindow/Sensors/SensorsView.h"
#include "TervaleWindow/Settings/SettingsView.h"
#include "TervaleWindow/Shell/Sidebar.h"
#include "TervaleWindow/Shell/StateAnnouncements.h"
#include "TervaleWindow/Shell/SystemMetadata.h"
#include "TervaleWindow/Shell/WindowCommands.h"

#include <QHBoxLayout>

namespace tervale {

ContentView::ContentView(Model& modelShown, Bridge& bridgeUsed, std::optional<Pane> section,
                         QWidget* parent)
    : QWidget(parent),
      model(modelShown),
      bridge(bridgeUsed),
      sidebar(new Sidebar(model)),
      columns(new QHBoxLayout(this)) {
    installAccessibleFactory();
    columns->setContentsMargins(0, 0, 0, 0);
    columns->setSpacing(0);
    columns->addWidget(sidebar);
    setAutoFillBackground(true);
    connect(sidebar, &Sidebar::sectionChosen, this, &ContentView::setSection);
    setSection(section);
    new WindowCommands(*this);
    new StateAnnouncements(model, *this);
}

void ContentView::setSection(std::optional<Pane> section) {
    sidebar->setSection(section);
    if (pane && section == shown)
        return;
    shown = section;
    // Whatever the user was about to do there ends first.
    if (pane)
        pane->hide();
    delete pane;
    pane = makePane(section.value_or(Pane::overview));
    columns->addWidget(pane, 1);
    // Now rather than from the event loop, so that the window never shows an empty place.
    pane->show();
    emit sectionShown();
}

QWidget* ContentView::makePane(Pane kind) {
    switch (kind) {
    case Pane::overview:
        return new OverviewView(model, bridge);
    case Pane::profiles:
        return new ProfilesView(model, bridge);
    case Pane::sensors:
        return new SensorsView(model);
    case Pane::settings:
        return new SettingsView(model, bridge, SystemMetadata(makeBundleText()));
    }
    precondition(false, "every pane has a view");
    return nullptr;
}

} // namespace tervale
