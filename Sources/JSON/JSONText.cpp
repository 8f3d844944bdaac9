#include "JSON/JSONText.h"

#include <cstdint>

namespace tervale {

namespace {

constexpr std::string_view blanks = " \t\n\r";

/// How long a string is, from quote to quote.
std::size_t lengthOfString(std::string_view text) {
    std::size_t end = 1;
    while (text[end] != '"')
        end += text[end] == '\\' ? std::size_t{2} : std::size_t{1};
    return end + 1;
}

/// How long an object or array is, from bracket to bracket.
std::size_t lengthOfContainer(std::string_view text) {
    std::size_t depth = 0;
    std::size_t end = 0;
    do {
        end = text.find_first_of("{}[]\"", end);
        const char character = text[end];
        if (character == '"') {
            end += lengthOfString(text.substr(end));
            continue;
        }
        if (character == '{' || character == '[')
            ++depth;
        else
            --depth;
        ++end;
    } while (depth > 0);
    return end;
}

/// The number of four hexadecimal digits.
std::uint32_t hexadecimal(std::string_view digits) {
    std::uint32_t value = 0;
    for (const char digit : digits) {
        const char lower = static_cast<char>(digit | 0x20);
        value =
            value * 16 + static_cast<std::uint32_t>(digit <= '9' ? digit - '0' : lower - 'a' + 10);
    }
    return value;
}

void appendUTF8(std::string& text, std::uint32_t scalar) {
    const auto append = [&text](std::uint32_t byte) { text += static_cast<char>(byte); };
    const auto appendTail = [&](unsigned shift) { append(0x80 | (scalar >> shift & 0x3F)); };
    if (scalar < 0x80) {
        append(scalar);
    } else if (scalar < 0x800) {
        append(0xC0 | scalar >> 6);
        appendTail(0);
    } else if (scalar < 0x10000) {
        append(0xE0 | scalar >> 12);
        appendTail(6);
        appendTail(0);
    } else {
        append(0xF0 | scalar >> 18);
        appendTail(12);
        appendTail(6);
        appendTail(0);
    }
}

char escaped(char letter) {
    switch (letter) {
    case 'b':
        return '\b';
    case 'f':
        return '\f';
    case 'n':
        return '\n';
    case 'r':
        return '\r';
    case 't':
        return '\t';
    default:
        return letter;
    }
}

} // namespace

std::string_view firstValue(std::string_view text) {
    if (text.front() == '"')
        return text.substr(0, lengthOfString(text));
    if (text.front() == '{' || text.front() == '[')
        return text.substr(0, lengthOfContainer(text));
    return text.substr(0, text.find_first_of(",]} \t\n\r"));
}

std::string unescaped(std::string_view spelling) {
    std::string text;
    while (!spelling.empty()) {
        const std::size_t plain = spelling.find('\\');
        text += spelling.substr(0, plain);
        if (plain == std::string_view::npos)
            break;
        spelling.remove_prefix(plain + 1);
        const char letter = spelling.front();
        spelling.remove_prefix(1);
        if (letter != 'u') {
            text += escaped(letter);
            continue;
        }
        std::uint32_t scalar = hexadecimal(spelling.substr(0, 4));
        spelling.remove_prefix(4);
        if (scalar >= 0xD800 && scalar < 0xDC00) {
            // The other half follows, with a backslash and a letter of its own.
            const std::uint32_t low = hexadecimal(spelling.substr(2, 4));
            scalar = 0x10000 + ((scalar - 0xD800) << 10) + (low - 0xDC00);
            spelling.remove_prefix(6);
        }
        appendUTF8(text, scalar);
    }
    return text;
}

void JSONItems::skipBlank() {
    skip(rest.find_first_not_of(blanks));
}

bool JSONItems::next() {
    if (place == Place::before) {
        inObject = rest.front() == '{';
        place = Place::within;
        skip(1);
    } else {
        skip(firstValue(rest).size());
    }
    skipBlank();
    if (rest.front() == (inObject ? '}' : ']'))
        return false;
    if (rest.front() == ',') {
        skip(1);
        skipBlank();
    }
    if (inObject) {
        const std::size_t length = lengthOfString(rest);
        spelledName = rest.substr(1, length - 2);
        skip(length);
        skip(rest.find(':') + 1);
        skipBlank();
    }
    return true;
}

bool JSONItems::isNamed(std::string_view name) const {
    if (spelledName.find('\\') == std::string_view::npos)
        return spelledName == name;
    // No character takes more than six to spell per byte that it stands for.
    return spelledName.size() <= 6 * name.size() && unescaped(spelledName) == name;
}

} // namespace tervale
