#include "Base/Terminal.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <utility>

namespace tervale {

namespace {

struct Range {
    char32_t first;
    char32_t last;
};

/// Controls, then separators and invisible marks, without U+200D, which joins emoji.
constexpr std::array obeyed{Range{0x0000, 0x001F}, Range{0x007F, 0x009F}, Range{0x00AD, 0x00AD},
                            Range{0x061C, 0x061C}, Range{0x180E, 0x180E}, Range{0x200B, 0x200C},
                            Range{0x200E, 0x200F}, Range{0x2028, 0x202E}, Range{0x2060, 0x206F},
                            Range{0xFEFF, 0xFEFF}, Range{0xFFF9, 0xFFFB}};

bool isObeyed(char32_t character) {
    return std::ranges::any_of(obeyed, [character](const Range& range) {
        return character >= range.first && character <= range.last;
    });
}

/// The bytes that a character begins with, by its first byte: how many, its bits in that byte, and
/// the least character that needs so many.
struct Form {
    std::size_t length;
    std::uint8_t bits;
    char32_t least;
};

Form formOf(std::uint8_t first) {
    if (first < 0x80U)
        return {1, 0x7F, 0};
    if (first >= 0xC0U && first < 0xE0U)
        return {2, 0x1F, 0x80};
    if (first >= 0xE0U && first < 0xF0U)
        return {3, 0x0F, 0x800};
    if (first >= 0xF0U && first < 0xF8U)
        return {4, 0x07, 0x10000};
    return {};
}

/// The length of the well-formed character that the text begins with, and the character; 0 if it
/// begins with none.
std::size_t decode(std::string_view text, char32_t& character) {
    const auto byte = [text](std::size_t i) { return static_cast<std::uint8_t>(text[i]); };
    const Form form = formOf(byte(0));
    if (form.length == 0 || form.length > text.size())
        return 0;
    character = byte(0) & form.bits;
    for (std::size_t i = 1; i < form.length; ++i) {
        if ((byte(i) & 0xC0U) != 0x80U)
            return 0;
        character = (character << 6U) | (byte(i) & 0x3FU);
    }
    const bool isSurrogate = character >= 0xD800 && character <= 0xDFFF;
    return character < form.least || character > 0x10FFFF || isSurrogate ? 0 : form.length;
}

} // namespace

std::string printable(std::string_view text) {
    std::string safe;
    while (!text.empty()) {
        char32_t character = 0;
        const std::size_t length = decode(text, character);
        if (length == 0)
            safe += "\uFFFD";
        else if (isObeyed(character))
            safe += ' ';
        else
            safe += text.substr(0, length);
        text.remove_prefix(std::max<std::size_t>(length, 1));
    }
    return safe;
}

bool print(std::FILE* stream, std::string_view text) {
    const bool taken = std::fwrite(text.data(), 1, text.size(), stream) == text.size();
    return std::fflush(stream) == 0 && taken;
}

std::string complaint(std::string_view program, std::string_view line) {
    return std::string(program) + ": " + printable(line) + '\n';
}

Terminal::Terminal(std::string programName, std::FILE* outputStream, std::FILE* errorStream)
    : program(std::move(programName)),
      output(outputStream),
      errors(errorStream) {}

int Terminal::print(std::string_view text) const {
    return tervale::print(output, text)
               ? exitStatus::done
               : complain("The output cannot be written.", exitStatus::failure);
}

int Terminal::complain(std::string_view line, int status) const {
    // The exit status reports the error even if printing fails.
    static_cast<void>(tervale::print(errors, complaint(program, line)));
    return status;
}

} // namespace tervale
