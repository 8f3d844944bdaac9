#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string>

namespace tervale {

/// What a fuzzer gives, taken bit by bit; zeros when there is no more.
class FuzzedBytes {
  public:
    FuzzedBytes(const std::uint8_t* data, std::size_t size) : bytes(data, size) {}

    bool empty() const { return bytes.empty(); }
    std::uint8_t byte() {
        if (bytes.empty())
            return 0;
        const std::uint8_t first = bytes.front();
        bytes = bytes.subspan(1);
        return first;
    }
    /// From 0 to below `limit`, which is 256 at most.
    std::size_t below(std::size_t limit) { return byte() % limit; }
    std::uint32_t word() {
        std::uint32_t value = 0;
        for (int count = 0; count < 4; ++count)
            value = value << 8U | byte();
        return value;
    }
    /// A byte tells its length, up to `most`.
    std::string text(std::size_t most) {
        std::string text;
        for (std::size_t left = below(most + 1); left > 0; --left)
            text += static_cast<char>(byte());
        return text;
    }
    std::string rest() {
        std::string text(reinterpret_cast<const char*>(bytes.data()), bytes.size());
        bytes = {};
        return text;
    }

  private:
    std::span<const std::uint8_t> bytes;
};

} // namespace tervale
