#include "TervaleWindow/Overview/OverviewFixture.h"

#include "TervaleWindow/Accessibility/AccessibleFactory.h"
#include "TervaleWindow/Overview/FanChoices.h"
#include "TervaleWindow/Overview/ModeHeading.h"

namespace tervale {

std::vector<Profile> twoProfiles() {
    return {{quietId, "Quiet", kind::Load{}}, {loudId, "Loud & clear", kind::Load{}}};
}

void OverviewFixture::SetUp() {
    installAccessibleFactory();
    controller.setFan(0, 2893, 3100, 1200, 5777, 1);
    controller.setFan(1, 2911, 3100, 1300, 6241);
    controller.set("Tp01", 45);
    controller.set("Tp05", 71);
    controller.set("Tm02", 47);
}

void OverviewFixture::show() {
    if (!model)
        makeModel();
    takeCommands();
    view = std::make_unique<OverviewView>(*model, bridge);
    view->resize(790, 1200);
    view->show();
}

QString OverviewFixture::heading() const {
    return view->findChild<ModeHeading*>()->findChild<QLabel*>()->text();
}

QString OverviewFixture::timerText() const {
    const auto line = timerLine(*model);
    return line ? line->text() : QString();
}

} // namespace tervale
