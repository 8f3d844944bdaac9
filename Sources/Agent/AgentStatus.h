#pragma once

#include "Agent/FanPermission.h"

#include <cstdint>
#include <optional>
#include <string>

namespace tervale {

/// What the agent has to tell people. Of several things the first counts, in this order; that it is
/// too hot, and that something is not stored, is told beside whatever else there is.
struct AgentNews {
    /// Why the controller has never been reached.
    std::optional<std::string> unreached{};
    /// Of the controller.
    std::optional<std::string> error{};
    FanPermission::Refusal refusal = FanPermission::Refusal::none;
    /// The fans are to run at full speed, and do unless one of the things above is told.
    bool tooHot = false;
    std::optional<std::string> notice{};
    /// Why something is not stored.
    std::optional<std::string> notStored{};
};

/// Words the one line of status. In a dry run it always says that it is one, and claims nothing of
/// the fans.
class AgentStatus {
  public:
    enum class Writing : std::uint8_t { done, pretended };
    /// How the fans were left.
    enum class Ending : std::uint8_t { handedBack, failed, unreached };

    explicit AgentStatus(Writing writing) : writing(writing) {}

    std::optional<std::string> text(const AgentNews& news) const;
    std::string farewell(Ending ending) const;

  private:
    std::optional<std::string> mainText(const AgentNews& news) const;
    /// With what is to be said in a dry run, whatever else there is.
    std::optional<std::string> remarked(std::optional<std::string> text) const;

    Writing writing;
};

} // namespace tervale
