#pragma once

#include <chrono>
#include <filesystem>
#include <functional>

namespace tervale {

/// What a guard does, in its own process and without the toolkit: it waits until the process that
/// started it is gone, as its standard input tells, or gives no sign of life for too long. Then it
/// ends that process, hands the fans back, and ends.
struct GuardDuty {
    /// One guard at a time holds this file locked: the next one reports only once the fans are
    /// back.
    std::filesystem::path lock;
    /// Only time in which the guard itself runs is counted: neither the machine's sleep nor a halt
    /// of both processes makes the other one late.
    std::chrono::milliseconds hangLimit{10'000};
    /// Whether the fans are automatic now. Tried again until they are, or `handBackLimit` passes.
    std::function<bool()> handBack;

    static constexpr std::chrono::seconds handBackLimit{30};
    static constexpr std::chrono::milliseconds lockPatience{1000};

    /// Returns when the duty is over, and tells how it went.
    enum class End : unsigned char { handedBack, notHandedBack, refused };
    End stand() const;

  private:
    bool waitForEnd() const;
    bool handBackPatiently() const;
};

} // namespace tervale
