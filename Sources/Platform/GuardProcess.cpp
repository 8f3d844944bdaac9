#include "Platform/GuardProcess.h"

#include "Platform/ProgramPath.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <csignal>
#include <fcntl.h>
#include <poll.h>
#include <sys/socket.h>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>
#include <utility>

namespace tervale {

namespace {

constexpr char sign = 'a';
/// No more than one sign of life in such a time, a little less than a tick.
constexpr std::chrono::milliseconds betweenSigns{700};

/// Both ends close with their processes, and with programs that these start.
bool makePair(std::array<FileDescriptor, 2>& ends) {
    std::array<int, 2> numbers{};
    if (::socketpair(AF_UNIX, SOCK_STREAM, 0, numbers.data()) != 0)
        return false;
    for (std::size_t i = 0; i < ends.size(); ++i) {
        ends[i] = FileDescriptor(numbers[i]);
        ::fcntl(numbers[i], F_SETFD, FD_CLOEXEC);
    }
    return true;
}

/// In the new process, where nothing may be called but what a signal's handler may call.
[[noreturn]] void become(const char* program, char* const* arguments, int socket) {
    ::setsid();
    for (const int signal : {SIGINT, SIGTERM, SIGHUP, SIGPIPE})
        ::signal(signal, SIG_IGN);
    sigset_t none;
    sigemptyset(&none);
    ::sigprocmask(SIG_SETMASK, &none, nullptr);
    if (::dup2(socket, STDIN_FILENO) == STDIN_FILENO)
        ::execv(program, arguments);
    ::_exit(127);
}

} // namespace

GuardProcess::GuardProcess(std::vector<std::string> given) : arguments(std::move(given)) {
    // A sign of life to a guard that is gone shall fail, not end this process.
    ::signal(SIGPIPE, SIG_IGN);
}

bool GuardProcess::keep() {
    const auto now = std::chrono::steady_clock::now();
    bury();
    await(std::chrono::milliseconds(0));
    if (report == Report::made && !greet())
        letGo();
    if (child == 0 && !(failed && now - *failed < pause)) {
        start();
        await(promptness);
        bury();
    }
    return report == Report::made;
}

std::optional<std::int64_t> GuardProcess::process() const {
    return report == Report::made ? std::optional(child) : std::nullopt;
}

bool GuardProcess::greet() {
    std::array<char, 64> answers{};
    const ssize_t answered = ::recv(socket.number(), answers.data(), answers.size(), MSG_DONTWAIT);
    if (answered == 0)
        return false;
    if (answered > 0)
        unanswered = 0;
    // Many signs in a short time would go unanswered by a guard that is well.
    const auto now = std::chrono::steady_clock::now();
    if (now - greeted < betweenSigns)
        return true;
    greeted = now;
    ++unanswered;
    return unanswered <= mostUnanswered &&
           ::send(socket.number(), &sign, sizeof sign, MSG_DONTWAIT) == sizeof sign;
}

void GuardProcess::start() {
    std::array<FileDescriptor, 2> ends;
    const std::string program = programPath();
    const auto now = std::chrono::steady_clock::now();
    failed = now;
    if (!makePair(ends))
        return;
    std::vector<char*> all;
    all.reserve(arguments.size() + 1);
    for (std::string& argument : arguments)
        all.push_back(argument.data());
    all.push_back(nullptr);
    const pid_t process = ::fork();
    if (process == 0)
        become(program.c_str(), all.data(), ends[1].number());
    if (process < 0)
        return;
    failed.reset();
    child = process;
    socket = std::move(ends[0]);
    // While the other end is open here too, a guard that fails would not be noticed.
    ends[1].close();
    unanswered = 0;
    report = Report::awaited;
    started = now;
}

void GuardProcess::await(std::chrono::milliseconds time) {
    if (report != Report::awaited)
        return;
    report = nextReport(time);
    const auto now = std::chrono::steady_clock::now();
    if (report == Report::missing || (report == Report::awaited && now - started >= patience)) {
        letGo();
        failed = now;
    }
}

GuardProcess::Report GuardProcess::nextReport(std::chrono::milliseconds time) const {
    const auto deadline = std::chrono::steady_clock::now() + time;
    for (;;) {
        const auto left = std::chrono::ceil<std::chrono::milliseconds>(
            deadline - std::chrono::steady_clock::now());
        pollfd waiting{socket.number(), POLLIN, 0};
        const int ready =
            ::poll(&waiting, 1, static_cast<int>(std::max<std::int64_t>(left.count(), 0)));
        if (ready < 0 && errno == EINTR)
            continue;
        if (ready == 0)
            return Report::awaited;
        char answer = 0;
        return ready > 0 && ::recv(socket.number(), &answer, sizeof answer, 0) == sizeof answer
                   ? Report::made
                   : Report::missing;
    }
}

void GuardProcess::letGo() {
    report = Report::missing;
    if (child == 0)
        return;
    ::kill(static_cast<pid_t>(child), SIGKILL);
    socket.close();
    dying.push_back(std::exchange(child, 0));
}

void GuardProcess::dismiss() {
    letGo();
    const auto deadline = std::chrono::steady_clock::now() + burialPatience;
    for (bury(); !dying.empty() && std::chrono::steady_clock::now() < deadline; bury())
        std::this_thread::sleep_for(std::chrono::milliseconds(2));
}

void GuardProcess::bury() {
    std::erase_if(dying, [](std::int64_t process) {
        const pid_t found = ::waitpid(static_cast<pid_t>(process), nullptr, WNOHANG);
        return found > 0 || (found < 0 && errno != EINTR);
    });
}

} // namespace tervale
