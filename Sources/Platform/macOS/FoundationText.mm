#include "Platform/macOS/FoundationText.h"

namespace tervale {

namespace {

/// Nil where the bytes are no UTF-8.
NSString* decoded(const char* bytes, std::size_t count) {
    return [[[NSString alloc] initWithBytes:bytes length:count
                                   encoding:NSUTF8StringEncoding] autorelease];
}

/// How many bytes the first of them announces.
std::size_t sequenceLength(char first) {
    const auto byte = static_cast<unsigned char>(first);
    if (byte < 0xC0)
        return 1;
    if (byte < 0xE0)
        return 2;
    return byte < 0xF0 ? 3 : 4;
}

/// Every byte that belongs to no character becomes a replacement character.
NSString* repaired(const std::string& text) {
    NSMutableString* result = [NSMutableString string];
    std::size_t position = 0;
    while (position < text.size()) {
        const std::size_t length = sequenceLength(text[position]);
        NSString* character =
            length <= text.size() - position ? decoded(text.data() + position, length) : nil;
        [result appendString:character ? character : @"\uFFFD"];
        position += character ? length : 1;
    }
    return result;
}

} // namespace

NSString* foundationText(const std::string& text) {
    NSString* result = decoded(text.data(), text.size());
    return result ? result : repaired(text);
}

std::optional<std::string> standardText(id object) {
    if (![object isKindOfClass:[NSString class]])
        return std::nullopt;
    // Unlike a C string, the data may hold zeros; unpaired surrogates do not make it fail.
    NSData* data = [object dataUsingEncoding:NSUTF8StringEncoding allowLossyConversion:YES];
    if (!data)
        return std::nullopt;
    return std::string(static_cast<const char*>([data bytes]), [data length]);
}

} // namespace tervale
