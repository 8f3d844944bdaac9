#pragma once

#include "Platform/FileDescriptor.h"
#include "SMC/IORegistry.h"

#include <chrono>
#include <filesystem>
#include <functional>
#include <map>
#include <memory>

namespace tervale {

/// The registry of a simulated Mac in another process. Each service that is found is a connection
/// to the process's socket, without which there is no service.
///
/// A call waits for the other process only so long. While an answer is overdue, further calls fail
/// at once; when it comes after all, they go on. Where the other process is gone, calls fail until
/// one in its place serves the socket, and then go on too: they look for it at once, and then less
/// and less often. One thread at a time.
class SocketRegistry final : public IORegistry {
  public:
    static constexpr std::chrono::milliseconds defaultPatience{1000};
    /// Between two looks for a process in the place of one that is gone: at first, and in the end.
    static constexpr std::chrono::milliseconds shortestPause{100};
    static constexpr std::chrono::milliseconds longestPause{1000};

    using Time = std::chrono::steady_clock::time_point;

    /// `now` says when a process is looked for again.
    explicit SocketRegistry(const std::filesystem::path& path,
                            std::chrono::milliseconds patience = defaultPatience,
                            std::function<Time()> now = std::chrono::steady_clock::now);
    ~SocketRegistry() override;

    std::optional<Service> findService(const std::string& className) override;
    Status open(Service service, std::uint32_t type, Connection& connection) override;
    void release(Service service) override;
    Status callStruct(Connection connection, std::uint32_t selector, const Structure& request,
                      Structure& response) override;
    void close(Connection connection) override;

  private:
    class Link;
    struct FoundService {
        std::string className;
        /// Null once it has been opened.
        std::unique_ptr<Link> link;
    };

    struct OpenConnection {
        std::string className;
        std::uint32_t type = 0;
        std::unique_ptr<Link> link;
        /// Before that, a link that is lost is not made anew.
        Time nextAttempt{};
        /// The last one, while there is no link.
        std::chrono::milliseconds pause{};
    };

    /// A link to a service of the class; null if there is none.
    std::unique_ptr<Link> find(const std::string& className) const;
    void restore(OpenConnection& connection);

    std::filesystem::path path;
    std::chrono::milliseconds patience;
    std::function<Time()> now;
    std::map<Service, FoundService> services;
    std::map<Connection, OpenConnection> connections;
    std::uint32_t lastHandle = 0;
};

} // namespace tervale
