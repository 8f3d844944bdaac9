#pragma once

#include <chrono>
#include <filesystem>
#include <functional>

namespace tervale {

class FileLock;

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
    /// Whether the fans are automatic now. Tried again until they are: often for `eagerTime`, then
    /// once every `pause` for as long as the lock's file lies in its place.
    std::function<bool()> handBack;
    /// Whether the machine is known to be cool enough to wait for a process that is silent. The
    /// fans are handed back at once where it is not. Asked after `patientWaits`; null: always.
    std::function<bool()> isCool{};
    std::chrono::milliseconds eagerTime{30'000};
    std::chrono::milliseconds pause{1000};

    /// The hang limit is so many waits.
    static constexpr int waits = 10;
    /// So many waits in silence mean nothing yet.
    static constexpr int patientWaits = 2;
    static constexpr std::chrono::milliseconds lockPatience{1000};

    /// Returns when the duty is over, and tells how it went.
    enum class End : unsigned char { handedBack, notHandedBack, refused };
    End stand() const;

  private:
    bool waitForEnd() const;
    bool handBackPatiently(const FileLock& held) const;
};

} // namespace tervale
