#include "TervaleWindow/Overview/FanChoices.h"

#include "Base/Overloaded.h"
#include "TervaleWindow/Appearance/Format.h"
#include "TervaleWindow/Model/DisplayName.h"

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
        targets.push_back({displayName(profile), action::Profile{profile.id}});
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
        return shortened(QString::fromStdString(*model.status()), longestStatus);
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

QString TimerLine::text() const {
    // All at once: a name may hold what looks like a place for the next.
    return QStringLiteral("%1 until %2, then %3").arg(runs, until, follows);
}

std::optional<TimerLine> timerLine(const Model& model) {
    if (!model.timerAction() || !model.timerEnds())
        return std::nullopt;
    return TimerLine{displayName(*model.timerAction(), model.profiles()),
                     timeOfDay(*model.timerEnds()),
                     displayName(model.selection(), model.profiles())};
}

} // namespace tervale
