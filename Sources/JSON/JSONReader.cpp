#include "JSON/JSONReader.h"

#include "Base/Overloaded.h"
#include "JSON/JSONNumber.h"

#include <algorithm>
#include <utility>

namespace tervale {

namespace {

const char* nameOf(char first) {
    switch (first) {
    case 'n':
        return "null";
    case 't':
    case 'f':
        return "a truth value";
    case '"':
        return "a string";
    case '[':
        return "an array";
    case '{':
        return "an object";
    default:
        return "a number";
    }
}

bool beginsNumber(char first) {
    return first == '-' || (first >= '0' && first <= '9');
}

} // namespace

void JSONReader::fail(DecodingError::Kind kind, std::string description) const {
    std::vector<std::string> path;
    for (const JSONReader* reader = this; reader->parent; reader = reader->parent)
        path.push_back(std::visit(overloaded{
                                      [](std::string_view name) { return std::string(name); },
                                      [](std::size_t index) { return std::to_string(index); },
                                  },
                                  reader->step));
    std::reverse(path.begin(), path.end());
    throw DecodingFailure{{kind, std::move(path), std::move(description)}};
}

void JSONReader::failToFind(const char* expected) const {
    fail(json.front() == 'n' ? DecodingError::Kind::valueNotFound
                             : DecodingError::Kind::typeMismatch,
         std::string("Expected ") + expected + ", found " + nameOf(json.front()) + ".");
}

JSONItems JSONReader::memberItems() const {
    if (json.front() != '{')
        failToFind("an object");
    return JSONItems(json);
}

JSONItems JSONReader::elementItems() const {
    if (json.front() != '[')
        failToFind("an array");
    return JSONItems(json);
}

std::optional<std::string_view> JSONReader::find(std::string_view name) const {
    for (JSONItems items = memberItems(); items.next();)
        if (items.isNamed(name))
            return items.value();
    return std::nullopt;
}

std::vector<std::string> JSONReader::names() const {
    std::vector<std::string> names;
    for (JSONItems items = memberItems(); items.next();)
        names.push_back(items.name());
    return names;
}

JSONReader JSONReader::requiredMember(std::string_view name) const {
    const std::optional<std::string_view> found = find(name);
    if (!found)
        fail(DecodingError::Kind::keyNotFound,
             "The member \"" + std::string(name) + "\" is missing.");
    return {*found, this, name};
}

bool JSONReader::boolean() const {
    if (json.front() != 't' && json.front() != 'f')
        failToFind("a truth value");
    return json.front() == 't';
}

double JSONReader::number() const {
    if (!beginsNumber(json.front()))
        failToFind("a number");
    const std::optional<double> value = jsonDouble(firstValue(json));
    if (!value)
        fail(DecodingError::Kind::dataCorrupted, "The number is greater than any that fits.");
    return *value;
}

std::int64_t JSONReader::integer() const {
    if (!beginsNumber(json.front()))
        failToFind("an integer");
    const std::optional<std::int64_t> value = jsonInteger(firstValue(json));
    if (!value)
        fail(DecodingError::Kind::dataCorrupted, "The number is no 64-bit integer.");
    return *value;
}

std::string JSONReader::text() const {
    if (json.front() != '"')
        failToFind("a string");
    const std::string_view spelling = firstValue(json);
    return unescaped(spelling.substr(1, spelling.size() - 2));
}

} // namespace tervale
