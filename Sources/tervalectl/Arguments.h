#pragma once

#include "tervalectl/Failure.h"

#include <QCommandLineParser>
#include <QStringList>

#include <string>
#include <string_view>

namespace tervale::ctl {

/// The failure of a command line that is not understood.
Failure misuse(std::string line);
/// The same for a command that lacks an argument.
Failure missing(std::string_view command, std::string_view argument);

/// A command line, split into options and positional arguments. The table of commands has the
/// options.
class Arguments {
  public:
    /// `line` begins with the program's name. Throws `Failure` for an unknown option, and for one
    /// without its value.
    explicit Arguments(const QStringList& line);

    bool has(std::string_view option) const;
    /// The option's value; empty if it is not given.
    std::string value(std::string_view option) const;
    /// The value in the encoding of the file system.
    std::string path(std::string_view option) const;

    // The positional arguments that have not been taken yet.
    qsizetype count() const { return positional.size(); }
    bool isEmpty() const { return positional.isEmpty(); }
    std::string first() const { return positional.constFirst().toStdString(); }

    // Each takes from the front unless its name says otherwise. There must be an argument.
    std::string take() { return positional.takeFirst().toStdString(); }
    std::string takeLast() { return positional.takeLast().toStdString(); }
    std::string takePath();
    /// All of them, joined by spaces; empty if there are none.
    std::string takeAll();

  private:
    QCommandLineParser parser;
    QStringList positional;
};

} // namespace tervale::ctl
