#pragma once

#include <cstdint>

constexpr std::uint32_t kIOMessageCanSystemSleep = 0xE0000270;
constexpr std::uint32_t kIOMessageSystemWillSleep = 0xE0000280;
constexpr std::uint32_t kIOMessageSystemHasPoweredOn = 0xE0000300;
