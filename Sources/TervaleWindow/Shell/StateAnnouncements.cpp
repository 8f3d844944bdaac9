#include "TervaleWindow/Shell/StateAnnouncements.h"

#include "TervaleWindow/Accessibility/Announcer.h"
#include "TervaleWindow/Model/DisplayName.h"

#include <utility>

namespace tervale {

StateAnnouncements::StateAnnouncements(const Model& modelTold, QWidget& windowUsed)
    : QObject(&windowUsed),
      model(modelTold),
      window(windowUsed),
      timed(modelTold.timerAction().has_value()) {
    connect(&model, &Model::statusChanged, this, &StateAnnouncements::tellStatus);
    connect(&model, &Model::timerActionChanged, this, &StateAnnouncements::tellTimer);
}

void StateAnnouncements::tellStatus() {
    if (model.status())
        announce(window, shortened(QString::fromStdString(*model.status()), longestStatus));
}

void StateAnnouncements::tellTimer() {
    const bool running = model.timerAction().has_value();
    if (std::exchange(timed, running) && !running)
        announce(window,
                 tr("Timer ended, now %1").arg(displayName(model.selection(), model.profiles())));
}

} // namespace tervale
