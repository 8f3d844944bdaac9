#pragma once

#include "tervalectl/Failure.h"

#include <QCommandLineParser>
#include <QStringList>

#include <string>
#include <string_view>

namespace tervale::ctl {

/// The failure of a command line that is not understood.
Failure misuse(std::string line);

/// The options' values on a command line, and the words between them.
class Words {
  public:
    /// `arguments` begin with the program's name. Throws `Failure`.
    explicit Words(const QStringList& arguments);

    bool has(std::string_view option) const;
    /// Empty if there is none.
    std::string text(std::string_view option) const;
    /// The same as the system spells paths.
    std::string path(std::string_view option) const;

    qsizetype count() const { return words.size(); }
    bool isEmpty() const { return words.isEmpty(); }
    std::string first() const { return words.constFirst().toStdString(); }

    // Taken away from the front, or the end.
    std::string take() { return words.takeFirst().toStdString(); }
    std::string takeLast() { return words.takeLast().toStdString(); }
    std::string takePath();
    /// Joined by blanks.
    std::string takeAll();

  private:
    QCommandLineParser parser;
    QStringList words;
};

} // namespace tervale::ctl
