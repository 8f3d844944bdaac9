#include "Base/Precondition.h"
#include "FuzzedBytes.h"
#include "JSON/JSON.h"
#include "tervalectl/Files.h"
#include "tervalectl/MachineReading.h"
#include "tervalectl/Replay.h"

#include <algorithm>
#include <cmath>
#include <fcntl.h>
#include <sstream>
#include <sys/mman.h>
#include <unistd.h>

using namespace tervale;

namespace {

/// A file that has no name anywhere else.
class FileInMemory {
  public:
    explicit FileInMemory(const std::string& text) : file(::memfd_create("fuzz", MFD_CLOEXEC)) {
        precondition(::write(file, text.data(), text.size()) == static_cast<ssize_t>(text.size()),
                     "the fuzzer has no memory");
    }
    ~FileInMemory() { ::close(file); }
    FileInMemory(const FileInMemory&) = delete;
    FileInMemory& operator=(const FileInMemory&) = delete;

    std::string path() const { return "/proc/self/fd/" + std::to_string(file); }

  private:
    int file;
};

/// What is a reading is within its bounds, and is the same once it was written and read again.
void checkReading(const std::string& line) {
    const auto decoded = decode<MachineReading>(line);
    const auto* reading = std::get_if<MachineReading>(&decoded);
    if (!reading) {
        precondition(!std::get<DecodingError>(decoded).text().empty(), "an error without a reason");
        return;
    }
    precondition(reading->minute >= 0 && reading->minute < 1440, "a minute of no day");
    precondition(!reading->load || (*reading->load >= 0 && *reading->load <= 100), "no load");
    precondition(reading->timeOfDay().size() == 8, "no time of day");
    const std::string text = encode(*reading);
    const auto again = decode<MachineReading>(text);
    precondition(std::holds_alternative<MachineReading>(again), "it does not read what it wrote");
    precondition(encode(std::get<MachineReading>(again)) == text, "one reading has two texts");
}

void checkLines(const std::string& text) {
    std::istringstream in(text);
    std::string together;
    while (const auto line = files::readLine(in)) {
        precondition(line->find('\n') == std::string::npos, "two lines at once");
        checkReading(*line);
        together += *line + '\n';
    }
    // A last line may lack its end, and an empty one at the end of the file is none.
    precondition(together == text || together == text + '\n', "something was lost");
}

/// A dry run tells something of each line, or fails at a line with a reason.
void checkReplay(const std::string& profiles, const std::string& trace, bool json) {
    std::istringstream in(trace);
    std::ostringstream out;
    const SystemClock clock;
    Context context{in, out, clock, json, 1, nullptr, {}};
    const FileInMemory file(profiles);
    ctl::Replay replay{file.path(), *parseActionOrJSON("profile a")};
    try {
        precondition(perform(replay, context) == ExitStatus::done, "a failure without a reason");
    } catch (const Failure& failure) {
        precondition(failure.status == ExitStatus::refused && !failure.line.empty(),
                     "a failure without a reason");
    }
    const std::string text = out.str();
    precondition(text.empty() || text.ends_with('\n'), "half a line");
    precondition(text.find('\x1B') == std::string::npos, "a terminal would obey this");
    if (!json)
        return;
    const auto inTrace = std::ranges::count(trace, '\n') + 1;
    precondition(std::ranges::count(text, '\n') <= inTrace, "more ticks than lines");
    std::istringstream lines(text);
    for (std::string line; std::getline(lines, line);)
        precondition(line.starts_with("{\"time\":") && line.ends_with('}'), "no outcome");
}

} // namespace

/// What the command line reads: profiles, and recorded readings line by line.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    FuzzedBytes input(data, size);
    const std::uint8_t choice = input.byte();
    const std::string text = input.rest();
    if (choice % 2 == 0) {
        checkLines(text);
        return 0;
    }
    // The profiles end where a line begins with a dot.
    const auto end = std::min(text.find("\n."), text.size());
    const std::string trace = end < text.size() ? text.substr(end + 2) : std::string();
    checkReplay(text.substr(0, end), trace, choice % 4 == 1);
    return 0;
}
