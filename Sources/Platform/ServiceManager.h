#pragma once

#include <string>

namespace tervale {

/// Tells the service manager that started the program how it is: lines such as "READY=1", by a
/// datagram to the socket in $NOTIFY_SOCKET. Does nothing where the variable is not set.
void tellServiceManager(const std::string& lines);

/// Whether standard error goes to the system's journal, as $JOURNAL_STREAM tells: device and number
/// of the file. A program started from a service's terminal has the variable, but another file.
bool standardErrorIsJournal();

} // namespace tervale
