#include "Profiles/UUID.h"

#include "JSON/JSONReader.h"
#include "JSON/JSONWriter.h"

#include <uuid/uuid.h>

namespace tervale {

namespace {

constexpr std::size_t textLength = 36;

bool isHyphenPosition(std::size_t position) {
    return position == 8 || position == 13 || position == 18 || position == 23;
}

/// Not through <cctype>, which asks the locale.
std::optional<unsigned> digitValue(char digit) {
    if (digit >= '0' && digit <= '9')
        return static_cast<unsigned>(digit - '0');
    if (digit >= 'A' && digit <= 'F')
        return static_cast<unsigned>(digit - 'A') + 10;
    if (digit >= 'a' && digit <= 'f')
        return static_cast<unsigned>(digit - 'a') + 10;
    return std::nullopt;
}

} // namespace

UUID UUID::random() {
    UUID id;
    uuid_generate_random(id.bytes.data());
    return id;
}

std::optional<UUID> UUID::parse(std::string_view text) {
    if (text.size() != textLength)
        return std::nullopt;
    UUID id;
    std::size_t digits = 0;
    for (std::size_t position = 0; position < textLength; ++position) {
        if (isHyphenPosition(position)) {
            if (text[position] != '-')
                return std::nullopt;
            continue;
        }
        const std::optional<unsigned> digit = digitValue(text[position]);
        if (!digit)
            return std::nullopt;
        std::uint8_t& byte = id.bytes[digits / 2];
        byte = static_cast<std::uint8_t>(unsigned{byte} << 4U | *digit);
        ++digits;
    }
    return id;
}

std::string UUID::text() const {
    constexpr std::string_view digits = "0123456789ABCDEF";
    std::string text;
    text.reserve(textLength);
    for (const std::uint8_t byte : bytes) {
        if (isHyphenPosition(text.size()))
            text += '-';
        text += digits[byte >> 4U];
        text += digits[byte & 0xFU];
    }
    return text;
}

void write(JSONWriter& json, const UUID& id) {
    json.string(id.text());
}

UUID read(const JSONReader& json, Type<UUID>) {
    const std::optional<UUID> id = UUID::parse(json.text());
    if (!id)
        json.fail(DecodingError::Kind::dataCorrupted, "The string is no UUID.");
    return *id;
}

} // namespace tervale

std::size_t std::hash<tervale::UUID>::operator()(const tervale::UUID& id) const noexcept {
    std::size_t hash = 0;
    for (const std::uint8_t byte : id.bytes)
        hash = hash * 31 + byte;
    return hash;
}
