#pragma once

#include "Support/ChildProcess.h"
#include "Support/TemporaryFolder.h"

#include <filesystem>
#include <optional>

namespace tervale {

/// A user's session of the test's own: a notification server, which nobody else reaches, and a
/// folder for defaults. Everything in it talks through sockets in its folder, not through the
/// network.
class FoundationSession {
  public:
    FoundationSession();
    FoundationSession(const FoundationSession&) = delete;
    FoundationSession& operator=(const FoundationSession&) = delete;

    /// Whether the notification server can be reached.
    bool serves();
    /// For programs of this session.
    QProcessEnvironment environment() const;
    std::filesystem::path path(const char* name) const { return folder.path / name; }

    /// What the program prints, line by line; with the complaint if it ends badly.
    QStringList run(const QStringList& arguments) const;
    QStringList run(const QString& program, const QStringList& arguments) const;

  private:
    TemporaryFolder folder;
    std::optional<ChildProcess> server;
};

} // namespace tervale
