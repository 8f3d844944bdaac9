#include "Agent/AgentStatus.h"

#include "Profiles/StoringFailure.h"

#include <algorithm>
#include <array>

namespace tervale {

namespace {

constexpr const char* dryRun = "Dry run: nothing is written to the controller.";

/// What is so, and what would be so in a dry run.
struct Claim {
    const char* done;
    const char* pretended;
};
constexpr Claim tooHot{
    "Too hot: Max until every CPU and GPU sensor is below 85 °C.",
    "Too hot: the fans would run at Max until every CPU and GPU sensor is below 85 °C."};
/// Beside what keeps that from being so.
constexpr Claim hotInVain{
    "It is too hot: the fans should run at Max until every CPU and GPU sensor is below 85 °C.",
    "It is too hot: the fans would run at Max until every CPU and GPU sensor is below 85 °C."};
constexpr Claim unguarded{
    "The fans are automatic, since no guard could be started that hands them back.",
    "The fans would be automatic, since no guard could be started that hands them back."};
constexpr Claim blind{
    "The fans are automatic until a CPU or GPU temperature can be read again.",
    "The fans would be automatic until a CPU or GPU temperature can be read again."};
constexpr Claim handedBack{"The agent has ended. The fans are automatic.", "The agent has ended."};

bool holdsAnyOf(const std::string& text, std::array<const char*, 2> parts) {
    return std::ranges::any_of(
        parts, [&](const char* part) { return text.find(part) != std::string::npos; });
}

/// The error of the controller as people read it. The system's codes for a right that is missing
/// say nothing to them.
std::string forPeople(const std::string& error) {
    return holdsAnyOf(error, {"0xe00002c1", "0xe00002e2"})
               ? "This agent may not write to the controller. " + error
               : error;
}

/// Opening tells the same codes in decimal.
std::string unreachedForPeople(const std::string& reason) {
    return (holdsAnyOf(reason, {"-536870207", "-536870174"})
                ? "This agent may not open the controller. "
                : "The controller is out of reach. ") +
           reason;
}

std::string worded(const Claim& claim, AgentStatus::Writing writing) {
    return writing == AgentStatus::Writing::done ? claim.done : claim.pretended;
}

/// Why the fans do not do what they should; nothing where they do.
std::optional<std::string> failureText(const AgentNews& news, AgentStatus::Writing writing) {
    if (news.unreached)
        return unreachedForPeople(*news.unreached);
    if (news.error)
        return forPeople(*news.error);
    switch (news.refusal) {
    case FanPermission::Refusal::unguarded:
        return worded(unguarded, writing);
    case FanPermission::Refusal::blind:
        return worded(blind, writing);
    case FanPermission::Refusal::none:
        break;
    }
    return std::nullopt;
}

/// One sentence behind the other.
std::string joined(const std::string& first, const std::string& second) {
    return first + (first.ends_with('.') ? " " : ". ") + second;
}

} // namespace

std::optional<std::string> AgentStatus::text(const AgentNews& news) const {
    std::optional<std::string> text = remarked(mainText(news));
    // Whoever saves something must learn of this whatever else there is to tell.
    if (news.notStored)
        text = (text ? *text + ' ' : std::string()) + storingFailure(*news.notStored);
    return text;
}

std::string AgentStatus::farewell(Ending ending) const {
    std::string text;
    switch (ending) {
    case Ending::handedBack:
        text = worded(handedBack, writing);
        break;
    case Ending::failed:
        text = "The agent has ended. The fans could not be handed back.";
        break;
    case Ending::unreached:
        text = "The agent has ended. It never reached a controller.";
        break;
    }
    return *remarked(text);
}

std::optional<std::string> AgentStatus::mainText(const AgentNews& news) const {
    // That the fans run at full speed is said only where nothing keeps them from it.
    if (const auto failure = failureText(news, writing))
        return news.tooHot ? joined(*failure, worded(hotInVain, writing)) : failure;
    return news.tooHot ? worded(tooHot, writing) : news.notice;
}

std::optional<std::string> AgentStatus::remarked(std::optional<std::string> text) const {
    if (writing == Writing::done)
        return text;
    return text ? *text + ' ' + dryRun : dryRun;
}

} // namespace tervale
