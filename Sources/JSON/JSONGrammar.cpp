#include "JSON/JSONError.h"
#include "JSON/JSONText.h"

#include <bitset>
#include <string>
#include <utility>

namespace tervale {

namespace {

[[noreturn]] void refuse(std::string description) {
    throw DecodingFailure{{DecodingError::Kind::dataCorrupted, {}, std::move(description)}};
}

/// Follows a text through the grammar of JSON without recursion, and with no more memory than one
/// bit for each level of nesting.
class Grammar {
  public:
    Grammar(std::string_view text, std::size_t begin) : text(text), position(begin) {}

    /// One value and nothing behind it.
    void follow() {
        while (beginValue() || endValue()) {
        }
    }

  private:
    /// Takes a scalar, an empty container, or as much of another as comes before its first value,
    /// which is when it returns true.
    bool beginValue() {
        skipBlank();
        switch (peek()) {
        case '{':
            return open('}');
        case '[':
            return open(']');
        case '"':
            takeString();
            break;
        case 't':
            takeWord("true");
            break;
        case 'f':
            takeWord("false");
            break;
        case 'n':
            takeWord("null");
            break;
        default:
            takeNumber();
        }
        return false;
    }
    /// Takes what comes after a value. Returns true if another one follows.
    bool endValue() {
        for (;;) {
            skipBlank();
            if (depth == 0) {
                if (position != text.size())
                    fail();
                return false;
            }
            if (take(',')) {
                if (inObject())
                    takeName();
                return true;
            }
            require(inObject() ? '}' : ']');
            --depth;
        }
    }

    bool open(char closing) {
        ++position;
        if (depth == maximumJSONDepth)
            refuse("The text nests more than " + std::to_string(maximumJSONDepth) + " levels.");
        objects[depth++] = closing == '}';
        skipBlank();
        if (take(closing)) {
            --depth;
            return false;
        }
        if (inObject())
            takeName();
        return true;
    }
    bool inObject() const { return objects[depth - 1]; }

    void takeName() {
        skipBlank();
        takeString();
        skipBlank();
        require(':');
    }
    void takeWord(std::string_view word) {
        for (const char letter : word)
            require(letter);
    }
    void takeNumber() {
        take('-');
        if (!take('0'))
            takeDigits();
        if (take('.'))
            takeDigits();
        if (take('e') || take('E')) {
            if (!take('+'))
                take('-');
            takeDigits();
        }
    }
    void takeDigits() {
        if (!isBetween('0', '9'))
            fail();
        while (isBetween('0', '9'))
            ++position;
    }
    void takeString() {
        require('"');
        while (!take('"')) {
            if (isBetween(0x20, 0x7F) && peek() != '\\')
                ++position;
            else if (take('\\'))
                takeEscape();
            else
                takeLongCharacter();
        }
    }
    void takeEscape() {
        if (!take('u')) {
            if (position == text.size() ||
                std::string_view("\"\\/bfnrt").find(text[position]) == std::string_view::npos)
                fail();
            ++position;
            return;
        }
        // Two halves make one character of a higher plane, and mean nothing alone.
        if (!(take('d') || take('D'))) {
            takeHexadecimal(4);
        } else if (isBetween('0', '7')) {
            takeHexadecimal(3);
        } else if (isBetween('8', '9') || isBetween('a', 'b') || isBetween('A', 'B')) {
            takeHexadecimal(3);
            require('\\');
            require('u');
            if (!take('d'))
                require('D');
            if (!isBetween('c', 'f') && !isBetween('C', 'F'))
                fail();
            takeHexadecimal(3);
        } else {
            fail();
        }
    }
    void takeHexadecimal(int count) {
        for (; count > 0; --count) {
            if (!isBetween('0', '9') && !isBetween('a', 'f') && !isBetween('A', 'F'))
                fail();
            ++position;
        }
    }
    /// A character of two to four bytes, in its shortest form, that is no half of another.
    void takeLongCharacter() {
        constexpr unsigned char firstTail = 0x80;
        constexpr unsigned char lastTail = 0xBF;
        const unsigned char lead = byte();
        int tails = 0;
        if (isBetween(0xC2, 0xDF))
            tails = 1;
        else if (isBetween(0xE0, 0xEF))
            tails = 2;
        else if (isBetween(0xF0, 0xF4))
            tails = 3;
        else
            fail();
        ++position;
        // The byte behind the lead tells an overlong form, a half, or what is beyond the planes.
        takeBetween(lead == 0xE0   ? 0xA0
                    : lead == 0xF0 ? 0x90
                                   : firstTail,
                    lead == 0xED   ? 0x9F
                    : lead == 0xF4 ? 0x8F
                                   : lastTail);
        while (--tails > 0)
            takeBetween(firstTail, lastTail);
    }

    /// The byte here; zero, which is never allowed, at the end.
    unsigned char byte() const {
        return position < text.size() ? static_cast<unsigned char>(text[position]) : 0;
    }
    char peek() const { return static_cast<char>(byte()); }
    bool isBetween(unsigned char first, unsigned char last) const {
        return byte() >= first && byte() <= last;
    }
    void takeBetween(unsigned char first, unsigned char last) {
        if (!isBetween(first, last))
            fail();
        ++position;
    }
    bool take(char character) {
        if (peek() != character)
            return false;
        ++position;
        return true;
    }
    void require(char character) {
        if (!take(character))
            fail();
    }
    void skipBlank() {
        while (peek() == ' ' || peek() == '\t' || peek() == '\n' || peek() == '\r')
            ++position;
    }
    [[noreturn]] void fail() const {
        refuse("The text is not JSON at byte " + std::to_string(position + 1) + ".");
    }

    std::string_view text;
    std::size_t position;
    std::size_t depth = 0;
    /// Which of the open containers are objects, the outermost first.
    std::bitset<maximumJSONDepth> objects;
};

} // namespace

std::string_view checkedJSON(std::string_view text) {
    if (text.size() > maximumJSONSize)
        refuse("The text is longer than " + std::to_string(maximumJSONSize) + " bytes.");
    constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF";
    const std::size_t begin = text.starts_with(byteOrderMark) ? byteOrderMark.size() : 0;
    Grammar(text, begin).follow();
    return text.substr(text.find_first_not_of(" \t\n\r", begin));
}

} // namespace tervale
