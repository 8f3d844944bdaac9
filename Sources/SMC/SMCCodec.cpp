#include "SMC/SMCCodec.h"

#include "Base/Precondition.h"
#include "SMC/SMC.h"

#include <algorithm>
#include <bit>
#include <cstring>

namespace tervale {

namespace {

std::uint32_t bigEndian(std::span<const std::byte> bytes) {
    std::uint32_t value = 0;
    for (const std::byte byte : bytes)
        value = value << 8 | std::to_integer<std::uint32_t>(byte);
    return value;
}

float littleEndianFloat(std::span<const std::byte> bytes) {
    std::uint32_t bits = 0;
    for (std::size_t i = 0; i < 4; ++i)
        bits |= std::to_integer<std::uint32_t>(bytes[i]) << (8 * i);
    return std::bit_cast<float>(bits);
}

std::uint32_t clamped(double value, std::int64_t highest) {
    return static_cast<std::uint32_t>(
        std::clamp<std::int64_t>(truncatedToInteger(value), 0, highest));
}

std::byte byteOf(std::uint32_t value, int shift) {
    return static_cast<std::byte>(value >> shift & 0xFFU);
}

} // namespace

std::uint32_t SMCCodec::fourCC(std::string_view text) {
    std::uint32_t code = 0;
    for (const char character : text)
        code = code << 8 | static_cast<unsigned char>(character);
    return code;
}

std::string SMCCodec::fourCCString(std::uint32_t code) {
    std::string text;
    for (const int shift : {24, 16, 8, 0}) {
        const auto character = code >> shift & 0xFFU;
        if (character >= 0x80U)
            return "?";
        text.push_back(static_cast<char>(character));
    }
    return text;
}

double SMCCodec::decode(std::string_view type, std::span<const std::byte> bytes) {
    if (type == "flt " && bytes.size() == 4)
        return static_cast<double>(littleEndianFloat(bytes));
    if (type == "fpe2" && bytes.size() == 2)
        return bigEndian(bytes) / 4.0;
    if (type == "ui8 " || type == "flag")
        return bytes.empty() ? 0.0 : std::to_integer<int>(bytes.front());
    if (type == "ui16" && bytes.size() == 2)
        return bigEndian(bytes);
    if (type == "ui32" && bytes.size() == 4)
        return bigEndian(bytes);
    throw SMCError("unsupported type '" + std::string(type) + "' (" + std::to_string(bytes.size()) +
                   " bytes)");
}

std::vector<std::byte> SMCCodec::encode(std::string_view type, double value) {
    if (type == "flt ") {
        const auto bits = std::bit_cast<std::uint32_t>(static_cast<float>(value));
        return {byteOf(bits, 0), byteOf(bits, 8), byteOf(bits, 16), byteOf(bits, 24)};
    }
    if (type == "fpe2") {
        const std::uint32_t fixed = clamped(value * 4, 65535);
        return {byteOf(fixed, 8), byteOf(fixed, 0)};
    }
    if (type == "ui8 " || type == "flag")
        return {byteOf(clamped(value, 255), 0)};
    throw SMCError("unsupported type '" + std::string(type) + "'");
}

} // namespace tervale
