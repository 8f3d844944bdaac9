// Draws the frames of a dial that answers a build on the simulated Mac: of each frame what differs
// from the one before, in a PNG file whose name tells its number and its place. The script
// `apng.py` makes one moving picture of them. Usage: tervale-animation light|dark FOLDER

#include "JSON/JSONWriter.h"
#include "Profiles/InMemoryPreferences.h"
#include "Profiles/InProcessNotificationCenter.h"
#include "Profiles/SensorSampler.h"
#include "SMC/SMC.h"
#include "Simulation/Simulation.h"
#include "TervaleWindow/Appearance/Colors.h"
#include "TervaleWindow/Appearance/Format.h"
#include "TervaleWindow/Controls/TextLabel.h"
#include "TervaleWindow/Gauges/FanDial.h"
#include "TervaleWindow/Gauges/ThermalBar.h"
#include "TervaleWindow/Shots/Scenes.h"
#include "TervaleWindow/Support/Look.h"

#include <QApplication>
#include <QBoxLayout>
#include <QDir>
#include <QFile>
#include <QLocale>

#include <algorithm>
#include <cstdint>
#include <optional>

using namespace tervale;

namespace {

constexpr double secondsPerFrame = 0.7;
constexpr int frames = 70;
constexpr double buildBegins = 4;
constexpr double buildEnds = 26;

/// A simulated Mac with its agent, on which a build runs for a while.
class Machine {
  public:
    Machine() {
        const Profile quiet{
            UUID{{1}}, "Quiet",
            kind::Temperature{{SensorGroup::cpu, true}, Curve{{{40, 0.1}, {60, 0.35}, {80, 1}}}}};
        Bridge bridge(center);
        bridge.send(command::SaveProfiles{{quiet}});
        bridge.send(command::Select{action::Profile{quiet.id}});
        // Until everything has its temperature.
        simulation.advance(300);
        began = now();
    }
    void advance() { simulation.advance(secondsPerFrame); }
    bool builds() const { return now() - began >= buildBegins && now() - began < buildEnds; }
    Fan fan() { return smc.fans().front(); }
    double hottest() {
        double hottest = 0;
        for (const TemperatureSensor& sensor : sensors) {
            if (sensor.group == SensorGroup::cpu)
                hottest = std::max(hottest, smc.temperature(sensor).value_or(0));
        }
        return hottest;
    }

  private:
    double now() const { return simulation.clock().now().sinceReference; }
    double load() const { return began > 0 && builds() ? 100 : 6; }

    InProcessNotificationCenter center;
    InMemoryPreferences preferences;
    double began = 0;
    Simulation simulation{{.scenario = Scenario::host,
                           .hostLoad = [this] { return std::optional(load()); },
                           .fans = 1},
                          center,
                          preferences,
                          Date{1}};
    SMC smc{simulation.mac()};
    std::vector<TemperatureSensor> sensors = smc.temperatureSensors();
};

/// The dial, the bar under it, and what goes on.
class Picture : public QWidget {
  public:
    Picture() {
        auto* column = new QVBoxLayout(this);
        column->setContentsMargins(20, 14, 20, 16);
        column->setSpacing(6);
        column->addWidget(&dial);
        auto* row = new QHBoxLayout;
        row->addWidget(&what);
        row->addStretch();
        row->addWidget(&figure);
        column->addLayout(row);
        column->addWidget(&bar);
        setFixedSize(sizeHint());
    }
    void show(const Fan& fan, double celsius, bool builds) {
        dial.set({fan.actual, fan.target, fan.min, fan.max, fan.manual});
        bar.setValue(celsius);
        figure.setText(tervale::celsius(celsius));
        figure.setForeground(Colors::of(palette()).figure(celsius));
        what.setText(builds ? "A build runs" : "Idle");
        layout()->activate();
    }

  private:
    FanDial dial;
    ThermalBar bar{6};
    TextLabel what{"Idle", TextStyle::caption(), TextColor::secondary};
    TextLabel figure{"", TextStyle::body()};
};

/// Readings under the names of their inputs.
struct Named {
    const TemperatureReadings& readings;
};
void write(JSONWriter& json, const Named& named) {
    json.object([&] {
        for (const TemperatureInput input : allTemperatureInputs)
            json.optionalMember(input.title(), named.readings.at(input));
    });
}

/// Ten minutes from nine in the morning, in which all that the Mac has becomes busy in a hot room.
void writeTrace(const QString& path) {
    constexpr int minutes = 60;
    constexpr double nine = 1768467600; // seconds since 1970, UTC
    Simulation simulation({.scenario = Scenario::heatwave});
    SMC smc(simulation.mac());
    SensorSampler sampler(smc.temperatureSensors(), [&smc](const TemperatureSensor& sensor) {
        return smc.temperature(sensor);
    });
    constexpr TemperatureInputSet inputs{TemperatureInput::averageOf(SensorGroup::cpu),
                                         TemperatureInput::hottestOf(SensorGroup::cpu),
                                         TemperatureInput::hottestOf(SensorGroup::gpu)};
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly))
        qFatal("cannot write %s", qPrintable(path));
    for (int second = 0; second < 10 * minutes; ++second) {
        simulation.advance(1);
        const TemperatureReadings readings = sampler.sample(inputs, simulation.clock().now());
        JSONWriter json;
        json.object([&] {
            json.member("time", nine + second);
            json.member("minute", std::int64_t{540} + second / minutes);
            json.member("temperatures", Named{readings});
        });
        file.write(QByteArray::fromStdString(json.text) + '\n');
    }
}

/// Where two pictures of one size differ.
QRect difference(const QImage& before, const QImage& now) {
    QRect changed;
    for (int y = 0; y < now.height(); ++y) {
        for (int x = 0; x < now.width(); ++x) {
            if (before.isNull() || before.pixel(x, y) != now.pixel(x, y))
                changed |= QRect(x, y, 1, 1);
        }
    }
    return changed;
}

} // namespace

int main(int count, char** values) {
    if (count != 3)
        qFatal("usage: tervale-animation light|dark|trace PATH");
    if (qstrcmp(values[1], "trace") == 0) {
        writeTrace(QString::fromLocal8Bit(values[2]));
        return 0;
    }
    qputenv("QT_QPA_PLATFORM", "offscreen");
    qputenv("QT_SCALE_FACTOR", "1.5");
    const QApplication application(count, values);
    holdStill();
    wear(Look::own);
    const bool dark = qstrcmp(values[1], "dark") == 0;
    QApplication::setPalette(dark ? darkLook() : lightLook());
    const QDir folder(QString::fromLocal8Bit(values[2]));
    folder.mkpath(".");
    Machine machine;
    Picture picture;
    QImage before;
    for (int frame = 0; frame < frames; ++frame) {
        machine.advance();
        picture.show(machine.fan(), machine.hottest(), machine.builds());
        const QImage now = picture.grab().toImage().convertToFormat(QImage::Format_RGB888);
        QRect changed = difference(before, now);
        // A frame needs a pixel at least.
        if (changed.isEmpty())
            changed = QRect(0, 0, 1, 1);
        const QString name = QString("%1+%2+%3.png")
                                 .arg(frame, 4, 10, QLatin1Char('0'))
                                 .arg(changed.x())
                                 .arg(changed.y());
        if (!now.copy(changed).save(folder.filePath(name), "PNG", 0))
            qFatal("cannot write %s", qPrintable(name));
        before = now;
    }
    return 0;
}
