#include "TervaleWindow/Overview/FanChoices.h"

#include "Base/Overloaded.h"
#include "TervaleWindow/Appearance/Format.h"

#include <QDateTime>
#include <QLocale>

#include <algorithm>
#include <cmath>

namespace tervale {

namespace {

QString timeOfDay(Date date) {
    // Any date can arrive from the agent; years beyond five digits are no time of day for a clock.
    constexpr double farthest = 1e12;
    const double seconds = std::clamp(date.sinceReference, -farthest, farthest);
    const auto milliseconds =
        static_cast<qint64>((seconds + Date::referenceSinceUnixEpoch) * 1000.0);
    const QLocale locale;
    return locale.toString(QDateTime::fromMSecsSinceEpoch(milliseconds).time(),
                           timeOfDayFormat(locale));
}

} // namespace

bool isSelected(const Model& model, const Action& action) {
    return !model.timerAction() && model.selection() == action;
}

std::vector<TimerTarget> timerTargets(const Model& model) {
    std::vector<TimerTarget> targets;
    targets.reserve(speedPresets.size() + 1 + model.profiles().size());
    for (const SpeedPreset& preset : speedPresets)
        targets.push_back({QString::fromLatin1(preset.title), action::Fixed{preset.fraction}});
    targets.push_back({QStringLiteral("Automatic"), action::Automatic{}});
    for (const Profile& profile : model.profiles())
        targets.push_back({QString::fromStdString(profile.name), action::Profile{profile.id}});
    return targets;
}

Action fixedAt(double sliderValue) {
    return action::Fixed{std::round(sliderValue * 100.0) / 100.0};
}

const Action& running(const Model& model) {
    return model.timerAction() ? *model.timerAction() : model.selection();
}

QString subtitle(const Model& model) {
    if (model.status())
        return QString::fromStdString(*model.status());
    return std::visit(
        overloaded{
            [](const action::Automatic&) { return QStringLiteral("macOS decides the fan speed."); },
            [](const action::Fixed&) {
                return QStringLiteral("Fixed speed, held until you change it.");
            },
            [](const action::Profile&) { return QStringLiteral("Following the profile."); },
        },
        running(model));
}

QString timerText(const Model& model) {
    if (!model.timerAction() || !model.timerEnds())
        return {};
    return QStringLiteral("%1 until %2, then %3")
        .arg(model.nameOf(*model.timerAction()), timeOfDay(*model.timerEnds()),
             model.nameOf(model.selection()));
}

} // namespace tervale
