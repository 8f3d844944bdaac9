#pragma once

#include "Support/ChildProcess.h"
#include "Support/TemporaryFolder.h"

#include <QByteArray>
#include <QList>

#include <memory>
#include <optional>

namespace tervale {

/// A program on the macOS adapters that does what it is told.
class AdapterProgram {
  public:
    AdapterProgram(const QString& program, const QProcessEnvironment& environment);

    /// What it says while it does it; nothing if it fails to.
    std::optional<QByteArray> does(const QByteArray& command);
    /// The notifications of a name so far: hexadecimal digits, or "nothing" for no string.
    QList<QByteArray> received(const QByteArray& name);
    bool receives(const QByteArray& name, const QList<QByteArray>& expected);
    /// Whether it stops when nobody tells it anything any more, without a fault.
    bool ends();

  private:
    ChildProcess process;
};

/// What belongs to a user's session, apart from the one of whoever runs the tests: folders,
/// defaults and the server of notifications.
class FoundationSession {
  public:
    FoundationSession();

    bool serves();
    std::unique_ptr<AdapterProgram> start() const;
    /// The same program in a bundle with the information dictionary.
    std::unique_ptr<AdapterProgram> startBundled(const QByteArray& information) const;
    /// Writes a property list as a user's default, with the tool that comes with the system.
    bool writeDefault(const QString& domain, const QString& key, const QString& value) const;

  private:
    QProcessEnvironment environment() const;

    TemporaryFolder folder;
    std::optional<ChildProcess> server;
};

} // namespace tervale
