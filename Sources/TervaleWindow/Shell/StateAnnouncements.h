#pragma once

#include "TervaleWindow/Model/Model.h"

#include <QObject>

class QWidget;

namespace tervale {

/// Announces what the agent tells of, whatever pane is shown: a line of status that comes or
/// changes, and the end of a timer, be it over or cancelled. What is chosen is not announced.
class StateAnnouncements final : public QObject {
    Q_OBJECT

  public:
    /// `model` outlives the window, which owns this.
    StateAnnouncements(const Model& model, QWidget& window);

  private:
    void tellStatus();
    void tellTimer();

    const Model& model;
    QWidget& window;
    bool timed;
};

} // namespace tervale
