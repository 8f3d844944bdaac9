#include "Platform/AgentLock.h"

#include "Platform/RuntimeFolder.h"

#include <charconv>
#include <ctime>
#include <fstream>
#include <string_view>
#include <unistd.h>

namespace tervale {

namespace {

std::string nowAsText() {
    const std::time_t now = std::time(nullptr);
    std::tm date{};
    ::gmtime_r(&now, &date);
    char text[sizeof "2026-01-31T09:13:28Z"];
    std::strftime(text, sizeof text, "%Y-%m-%dT%H:%M:%SZ", &date);
    return text;
}

std::optional<std::int64_t> processIn(std::string_view text) {
    std::int64_t number = 0;
    const auto read = std::from_chars(text.data(), text.data() + text.size(), number);
    if (read.ec != std::errc() || read.ptr != text.data() + text.size() || number <= 0)
        return std::nullopt;
    return number;
}

} // namespace

std::filesystem::path AgentLock::defaultPath() {
    return runtimeFolder() / "agent.lock";
}

std::optional<AgentLock::Holder> AgentLock::holder(const std::filesystem::path& path) {
    if (!FileLock::isHeld(path))
        return std::nullopt;
    std::ifstream file(path);
    Holder holder;
    for (std::string line; std::getline(file, line);) {
        const std::string_view text = line;
        if (text.starts_with("pid="))
            holder.process = processIn(text.substr(4));
        else if (text.starts_with("started="))
            holder.started = text.substr(8);
        else if (text.starts_with("guard="))
            holder.guard = processIn(text.substr(6));
    }
    return holder;
}

FileLock AgentLock::take(const std::filesystem::path& path, std::chrono::milliseconds patience) {
    std::optional<FileLock> taken;
    try {
        taken = FileLock::take(path, patience);
    } catch (const FileLock::Refused& refusal) {
        throw Unavailable(refusal.what());
    }
    if (!taken) {
        const std::optional<Holder> other = holder(path);
        throw Refused(other && other->process ? "An agent runs already: process " +
                                                    std::to_string(*other->process) + "."
                                              : "An agent runs already.");
    }
    return std::move(*taken);
}

AgentLock::AgentLock(const std::filesystem::path& where, std::chrono::milliseconds patience)
    : path(where),
      lock(take(path, patience)) {
    self.process = ::getpid();
    self.started = nowAsText();
    write();
}

void AgentLock::keep() {
    if (lock.isInPlace())
        return;
    lock = take(path, defaultPatience);
    write();
}

void AgentLock::setGuard(std::optional<std::int64_t> process) {
    if (self.guard == process)
        return;
    self.guard = process;
    write();
}

void AgentLock::write() const {
    std::string text = "pid=" + std::to_string(*self.process) + "\nstarted=" + self.started + "\n";
    if (self.guard)
        text += "guard=" + std::to_string(*self.guard) + "\n";
    // That the lock is held counts, not what the file says of it: a full disk keeps no agent away.
    static_cast<void>(lock.write(text));
}

} // namespace tervale
