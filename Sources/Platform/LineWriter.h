#pragma once

#include <chrono>
#include <cstddef>
#include <functional>
#include <memory>
#include <string>
#include <thread>

namespace tervale {

/// Writes lines to a file from a thread of its own, so that who has them written never waits for
/// who reads them: a terminal that is halted, a full pipe, a slow disk. Meanwhile some lines wait,
/// and the others are lost; how many is told as soon as the file takes lines again.
class LineWriter {
  public:
    /// So many lines wait at most.
    static constexpr std::size_t mostWaiting = 64;
    /// How long the end waits for lines to be written. What nobody takes by then is lost.
    static constexpr std::chrono::milliseconds lastPatience{200};

    /// The line that tells how many were lost.
    using Words = std::function<std::string(int)>;

    /// `file` is a descriptor that stays open as long as the process.
    LineWriter(int file, Words words);
    ~LineWriter();
    LineWriter(const LineWriter&) = delete;
    LineWriter& operator=(const LineWriter&) = delete;

    /// With its line end.
    void write(std::string line);
    /// Waits so long until every line is written; whether it is.
    bool drain(std::chrono::milliseconds patience) const;

  private:
    struct Shared;

    /// The thread's as well, which may outlive the object.
    std::shared_ptr<Shared> shared;
    std::thread thread;
};

} // namespace tervale
