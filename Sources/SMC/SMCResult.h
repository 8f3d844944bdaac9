#pragma once

#include <cstdint>

/// The controller's own results, in the byte `result` of its answer.
namespace tervale::smcResult {

inline constexpr std::uint8_t success = 0;
inline constexpr std::uint8_t unknownCommand = 130;
inline constexpr std::uint8_t unknownKey = 132;
inline constexpr std::uint8_t notReadable = 133;
inline constexpr std::uint8_t notWritable = 134;
inline constexpr std::uint8_t wrongSize = 135;
inline constexpr std::uint8_t badValue = 137;

} // namespace tervale::smcResult
