#pragma once

#include "TervaleWindow/Model/Model.h"

#include <QSignalSpy>

#include <array>
#include <vector>

namespace tervale {

/// Counts every notification of a model.
class Notifications {
  public:
    explicit Notifications(Model& model)
        : spies{{QSignalSpy(&model, &Model::fansChanged),
                 QSignalSpy(&model, &Model::summaryChanged),
                 QSignalSpy(&model, &Model::readingsChanged),
                 QSignalSpy(&model, &Model::connectedChanged),
                 QSignalSpy(&model, &Model::selectionChanged),
                 QSignalSpy(&model, &Model::timerActionChanged),
                 QSignalSpy(&model, &Model::timerEndsChanged),
                 QSignalSpy(&model, &Model::statusChanged),
                 QSignalSpy(&model, &Model::launchAtLoginChanged),
                 QSignalSpy(&model, &Model::profilesChanged),
                 QSignalSpy(&model, &Model::stateChanged)}} {}

    std::vector<int> counts() const {
        std::vector<int> result;
        for (const QSignalSpy& spy : spies)
            result.push_back(static_cast<int>(spy.count()));
        return result;
    }

  private:
    std::array<QSignalSpy, 11> spies;
};

} // namespace tervale
