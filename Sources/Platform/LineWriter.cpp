#include "Platform/LineWriter.h"

#include <cerrno>
#include <condition_variable>
#include <csignal>
#include <deque>
#include <mutex>
#include <string_view>
#include <system_error>
#include <unistd.h>
#include <utility>

namespace tervale {

namespace {

/// While it lives, threads that are started get no signals: those of the process are another's, and
/// those that writing raises (a reader that is gone, a terminal of others) must not end or halt it.
class WithoutSignals {
  public:
    WithoutSignals() {
        sigset_t all;
        sigfillset(&all);
        ::pthread_sigmask(SIG_SETMASK, &all, &before);
    }
    ~WithoutSignals() { ::pthread_sigmask(SIG_SETMASK, &before, nullptr); }
    WithoutSignals(const WithoutSignals&) = delete;
    WithoutSignals& operator=(const WithoutSignals&) = delete;

  private:
    sigset_t before{};
};

/// There is no place to tell that the log cannot be written.
void writeAll(int file, std::string_view text) {
    while (!text.empty()) {
        const ssize_t written = ::write(file, text.data(), text.size());
        if (written > 0)
            text.remove_prefix(static_cast<std::size_t>(written));
        else if (written < 0 && errno != EINTR)
            return;
    }
}

} // namespace

struct LineWriter::Shared {
    Shared(int file, Words words) : file(file), words(std::move(words)) {}

    /// Of the thread.
    void run() {
        std::unique_lock lock(mutex);
        for (;;) {
            changed.wait(lock, [this] { return !isIdle() || ending; });
            if (isIdle())
                return;
            writing = true;
            std::deque<std::string> lines = std::exchange(waiting, {});
            lock.unlock();
            for (const std::string& line : lines)
                writeAll(file, line);
            lock.lock();
            // The lines were lost behind those that have waited.
            if (const int untold = std::exchange(lost, 0); untold > 0)
                waiting.push_back(words(untold));
            writing = false;
            changed.notify_all();
        }
    }
    bool isIdle() const { return waiting.empty() && lost == 0 && !writing; }

    int file;
    Words words;
    std::mutex mutex;
    std::condition_variable changed;
    std::deque<std::string> waiting;
    int lost = 0;
    bool writing = false;
    bool ending = false;
};

LineWriter::LineWriter(int file, Words words)
    : shared(std::make_shared<Shared>(file, std::move(words))) {
    const WithoutSignals quiet;
    try {
        thread = std::thread([shared = shared] { shared->run(); });
    } catch (const std::system_error&) {
        // A system that is short of threads: what the lines tell of matters more than they do.
    }
}

LineWriter::~LineWriter() {
    if (!thread.joinable())
        return;
    const bool done = drain(lastPatience);
    {
        const std::lock_guard lock(shared->mutex);
        shared->ending = true;
        if (!done)
            shared->waiting.clear();
    }
    shared->changed.notify_all();
    // One that waits for a reader waits until the process is gone.
    if (done)
        thread.join();
    else
        thread.detach();
}

void LineWriter::write(std::string line) {
    {
        const std::lock_guard lock(shared->mutex);
        if (shared->waiting.size() < mostWaiting)
            shared->waiting.push_back(std::move(line));
        else
            ++shared->lost;
    }
    shared->changed.notify_all();
}

bool LineWriter::drain(std::chrono::milliseconds patience) const {
    std::unique_lock lock(shared->mutex);
    return shared->changed.wait_for(lock, patience, [this] { return shared->isIdle(); });
}

} // namespace tervale
