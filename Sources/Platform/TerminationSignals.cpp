#include "Platform/TerminationSignals.h"

#include "Base/Precondition.h"

#include <array>
#include <atomic>
#include <cerrno>
#include <csignal>
#include <fcntl.h>
#include <poll.h>
#include <unistd.h>
#include <utility>

namespace tervale {

namespace {

constexpr std::array terminating{SIGINT, SIGTERM, SIGHUP};

// All that a signal's handler may touch.
std::atomic<int> signalled = -1;
static_assert(std::atomic<int>::is_always_lock_free);

extern "C" void noteSignal(int) {
    const int before = errno;
    constexpr char note = 0;
    // A pipe that is full has notes enough.
    [[maybe_unused]] const ssize_t written = ::write(signalled, &note, 1);
    errno = before;
}

void handleAllWith(void (*handler)(int)) {
    struct sigaction action {};
    action.sa_handler = handler;
    action.sa_flags = SA_RESTART;
    sigemptyset(&action.sa_mask);
    for (const int number : terminating)
        ::sigaction(number, &action, nullptr);
}

} // namespace

TerminationSignals::TerminationSignals(std::function<void()> handler) {
    std::array<int, 2> ends{};
    precondition(signalled == -1, "a process handles its signals in one place");
    precondition(::pipe(ends.data()) == 0, "no pipe could be made");
    readingEnd = FileDescriptor(ends[0]);
    writingEnd = FileDescriptor(ends[1]);
    for (const int end : ends) {
        ::fcntl(end, F_SETFD, FD_CLOEXEC);
        ::fcntl(end, F_SETFL, O_NONBLOCK);
    }
    arrival = std::make_unique<QSocketNotifier>(readingEnd.number(), QSocketNotifier::Read);
    QObject::connect(arrival.get(), &QSocketNotifier::activated, arrival.get(),
                     [this, handler = std::move(handler)] {
                         std::array<char, 16> notes{};
                         if (::read(readingEnd.number(), notes.data(), notes.size()) > 0)
                             handler();
                     });
    signalled = writingEnd.number();
    handleAllWith(&noteSignal);
}

TerminationSignals::~TerminationSignals() {
    handleAllWith(SIG_DFL);
    signalled = -1;
}

bool TerminationSignals::arriveWithin(std::chrono::milliseconds time) const {
    pollfd note{.fd = readingEnd.number(), .events = POLLIN, .revents = 0};
    int ready = 0;
    // The signal itself interrupts the wait, and its note is there then.
    do
        ready = ::poll(&note, 1, static_cast<int>(time.count()));
    while (ready < 0 && errno == EINTR);
    return ready > 0;
}

} // namespace tervale
