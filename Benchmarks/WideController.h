#pragma once

#include "Simulation/SensorKeys.h"
#include "TervaleWindow/Support/FakeController.h"

#include <cstddef>
#include <string>
#include <vector>

namespace tervale {

/// A controller with two fans and more sensors than any Mac has, whose readings go up and down.
class WideController {
  public:
    /// So many sensors in each of the first so many groups.
    WideController(std::size_t groups, std::size_t sensorsOfAGroup) {
        for (std::size_t group = 0; group < groups; ++group)
            for (std::size_t position = 0; position < sensorsOfAGroup; ++position)
                keys.push_back(sensorKey(SensorGroup::allCases.at(group), position));
        move();
    }

    /// To the next of eight readings, each of which is worth showing.
    void move() {
        turn = (turn + 1) % 8;
        const double speed = 1500 + 500 * turn;
        for (const int fan : {0, 1})
            controller.setFan(fan, speed, speed);
        for (std::size_t index = 0; index < keys.size(); ++index)
            controller.set(keys[index], 40 + 5 * turn + static_cast<double>(index % 16));
    }

    FakeController controller;

  private:
    std::vector<std::string> keys;
    int turn = 0;
};

} // namespace tervale
