#pragma once

#include <QProcess>
#include <QString>
#include <QStringList>

#include <functional>

namespace tervale {

/// Runs the event loop until the condition holds; false if it takes too long.
bool eventually(const std::function<bool()>& condition);

/// A program that runs no longer than the object, nor than the test.
class ChildProcess {
  public:
    ChildProcess(const QString& program, const QStringList& arguments,
                 const QProcessEnvironment& environment);
    ~ChildProcess();
    ChildProcess(const ChildProcess&) = delete;
    ChildProcess& operator=(const ChildProcess&) = delete;

    bool runs() const { return process.state() == QProcess::Running; }
    qint64 id() const { return process.processId(); }
    /// What it has written to standard output and to standard error.
    const QByteArray& output();
    const QByteArray& errors();
    bool says(const QByteArray& text);
    /// To its standard input.
    void write(const QByteArray& text) { process.write(text); }
    void closeInput() { process.closeWriteChannel(); }

    void send(int signal) const;
    /// False if it does not end in time.
    bool ends();
    /// Once it has ended by itself; -1 after a crash.
    int status() const;

  private:
    QProcess process;
    QByteArray outputSoFar;
    QByteArray errorsSoFar;
};

} // namespace tervale
