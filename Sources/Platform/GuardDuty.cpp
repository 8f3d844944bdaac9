#include "Platform/GuardDuty.h"

#include "Platform/FileLock.h"

#include <algorithm>
#include <array>
#include <csignal>
#include <poll.h>
#include <sys/socket.h>
#include <thread>
#include <unistd.h>

namespace tervale {

namespace {

constexpr int agent = STDIN_FILENO;

enum class Sign : unsigned char { alive, silent, disturbed, gone };

/// The next sign of life, waited for so long.
Sign nextSign(std::chrono::milliseconds wait) {
    pollfd waiting{agent, POLLIN, 0};
    const int ready = ::poll(&waiting, 1, static_cast<int>(wait.count()));
    if (ready < 0)
        return Sign::disturbed;
    if (ready == 0)
        return Sign::silent;
    std::array<char, 64> signs{};
    return ::recv(agent, signs.data(), signs.size(), 0) > 0 ? Sign::alive : Sign::gone;
}

bool answer() {
    constexpr char sign = 'g';
    return ::send(agent, &sign, sizeof sign, MSG_DONTWAIT) == sizeof sign;
}

} // namespace

GuardDuty::End GuardDuty::stand() const {
    for (const int signal : {SIGINT, SIGTERM, SIGHUP, SIGPIPE})
        ::signal(signal, SIG_IGN);
    const pid_t guarded = ::getppid();
    const auto held = FileLock::take(lock, lockPatience);
    if (!held)
        return End::refused;
    // An agent that is gone by now may have held fans under the guard before this one.
    const bool hangs = answer() && !waitForEnd();
    // The parent's number is its own for as long as it lives.
    if (hangs && ::getppid() == guarded)
        ::kill(guarded, SIGKILL);
    bool done = handBackPatiently(*held);
    if (!hangs)
        return done ? End::handedBack : End::notHandedBack;
    // What it wrote with its last breath is undone as well.
    Sign last = Sign::alive;
    while (last == Sign::alive || last == Sign::disturbed)
        last = nextSign(hangLimit);
    if (last == Sign::gone)
        done = handBackPatiently(*held);
    return done ? End::handedBack : End::notHandedBack;
}

bool GuardDuty::waitForEnd() const {
    // A wait that the machine's sleep stretches still counts as one.
    for (int silent = 0; silent < waits;) {
        switch (nextSign(hangLimit / waits)) {
        case Sign::alive:
            silent = 0;
            answer();
            break;
        case Sign::silent:
            ++silent;
            // The fans are as the silent process left them, and may be slow.
            if (silent >= patientWaits && isCool && !isCool())
                handBack();
            break;
        case Sign::disturbed:
            break;
        case Sign::gone:
            return true;
        }
    }
    return false;
}

bool GuardDuty::handBackPatiently(const FileLock& held) const {
    constexpr std::chrono::milliseconds eagerPause{100};
    const auto calmFrom = std::chrono::steady_clock::now() + eagerTime;
    while (!handBack()) {
        const bool eager = std::chrono::steady_clock::now() < calmFrom;
        // Without its place in the session nobody else waits for this guard either.
        if (!eager && !held.isInPlace())
            return false;
        std::this_thread::sleep_for(eager ? std::min(eagerPause, pause) : pause);
    }
    return true;
}

} // namespace tervale
