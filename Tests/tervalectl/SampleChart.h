#pragma once

#include "tervalectl/Chart.h"

#include <utility>
#include <vector>

namespace tervale {

/// A minute of a profile on the CPU's average, which goes from 40 to 99 °C; safety holds from its
/// 40th to its 50th second.
inline Chart sampleChart(std::string title = "Quiet, dry run") {
    Chart chart(std::move(title));
    for (int second = 0; second <= 60; ++second) {
        ChartSample sample;
        sample.time = 36000 + second;
        sample.secondOfDay = 36000 + second;
        sample.input = TemperatureInput::averageOf(SensorGroup::cpu);
        sample.driving = 40 + second * 59.0 / 60;
        sample.cpu = *sample.driving + 4;
        sample.gpu = 45;
        sample.target = second / 60.0;
        sample.safety = second >= 40 && second < 50;
        chart.add(sample);
    }
    return chart;
}

} // namespace tervale
