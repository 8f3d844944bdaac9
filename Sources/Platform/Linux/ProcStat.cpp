#include "Platform/Linux/ProcStat.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstddef>
#include <fstream>
#include <string>

namespace tervale {

std::optional<ProcessorTimes> parseProcStat(std::string_view text) {
    constexpr std::string_view label = "cpu ";
    constexpr std::size_t idle = 3;
    constexpr std::size_t waiting = 4;
    constexpr std::size_t counted = 8;
    constexpr std::size_t required = 4;
    if (!text.starts_with(label))
        return std::nullopt;
    std::string_view line = text.substr(label.size(), text.find('\n') - label.size());

    std::array<std::uint64_t, counted> times{};
    std::size_t count = 0;
    ProcessorTimes sum;
    for (; count < counted; ++count) {
        line.remove_prefix(std::min(line.find_first_not_of(' '), line.size()));
        const auto [end, error] =
            std::from_chars(line.data(), line.data() + line.size(), times.at(count));
        if (error != std::errc{})
            break;
        line.remove_prefix(static_cast<std::size_t>(end - line.data()));
        sum.total += times.at(count);
    }
    if (count < required)
        return std::nullopt;
    sum.busy = sum.total - times[idle] - times[waiting];
    return sum;
}

std::optional<ProcessorTimes> processorTimes() {
    std::ifstream file("/proc/stat");
    std::string firstLine;
    if (!std::getline(file, firstLine))
        return std::nullopt;
    return parseProcStat(firstLine);
}

} // namespace tervale
