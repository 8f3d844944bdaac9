#pragma once

#include "Platform/FileDescriptor.h"

#include <chrono>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace tervale {

/// A second process of this same program, which notices when this one is gone, however it went, and
/// when it hangs. What it then does is its own matter: see `GuardDuty`. The two share a pair of
/// sockets, of which the kernel closes an end with its process. The guard belongs to a session of
/// its own and ignores the signals that ask a process to end, so that nothing ends both at once
/// by asking.
class GuardProcess {
  public:
    /// How long a guard has to report for duty.
    static constexpr std::chrono::milliseconds patience{2000};
    /// How much of that is waited for on the spot, by who has fans to look after meanwhile.
    static constexpr std::chrono::milliseconds promptness{250};
    /// A guard that leaves so many signs of life unanswered counts as gone.
    static constexpr int mostUnanswered = 2;
    /// How long one that was killed is waited for. The kernel may keep it for longer.
    static constexpr std::chrono::milliseconds burialPatience{500};
    /// Until another attempt after one that failed.
    static constexpr std::chrono::seconds pause{5};

    /// With which the program is started, its name first; its standard input is the socket.
    explicit GuardProcess(std::vector<std::string> arguments);
    /// The guard notices, and ends by itself.
    ~GuardProcess() = default;
    GuardProcess(const GuardProcess&) = delete;
    GuardProcess& operator=(const GuardProcess&) = delete;

    /// Gives the guard a sign of life, to be called once a second from the first time on; starts
    /// one where none stands. Whether one stands. Takes no longer than `promptness`: one that needs
    /// more time stands at a later call.
    bool keep();
    /// Nothing while none stands.
    std::optional<std::int64_t> process() const;
    /// Ends the guard, which has nothing more to do. Takes no longer than `burialPatience`.
    void dismiss();

  private:
    enum class Report : unsigned char { made, awaited, missing };

    /// Whether it lives, and answers.
    bool greet();
    void start();
    /// Waits so long for the guard's report, unless it was made before.
    void await(std::chrono::milliseconds time);
    Report nextReport(std::chrono::milliseconds time) const;
    /// Kills the guard.
    void letGo();
    /// Takes note of those that are gone by now.
    void bury();

    std::vector<std::string> arguments;
    FileDescriptor socket;
    /// 0 while there is none.
    std::int64_t child = 0;
    Report report = Report::missing;
    std::chrono::steady_clock::time_point started{};
    /// Killed, but not gone yet.
    std::vector<std::int64_t> dying;
    int unanswered = 0;
    std::chrono::steady_clock::time_point greeted{};
    std::optional<std::chrono::steady_clock::time_point> failed;
};

} // namespace tervale
