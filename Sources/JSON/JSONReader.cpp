#include "JSON/JSONReader.h"

#include "Base/Overloaded.h"

#include <algorithm>
#include <utility>

namespace tervale {

namespace {

const char* nameOf(const JSONValue& json) {
    return std::visit(overloaded{
                          [](JSONNull) { return "null"; },
                          [](bool) { return "a truth value"; },
                          [](std::int64_t) { return "a number"; },
                          [](double) { return "a number"; },
                          [](const std::string&) { return "a string"; },
                          [](const JSONArray&) { return "an array"; },
                          [](const JSONObject&) { return "an object"; },
                      },
                      json.value);
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
    const bool isNull = std::holds_alternative<JSONNull>(json.value);
    fail(isNull ? DecodingError::Kind::valueNotFound : DecodingError::Kind::typeMismatch,
         std::string("Expected ") + expected + ", found " + nameOf(json) + ".");
}

const JSONObject& JSONReader::members() const {
    const auto* object = std::get_if<JSONObject>(&json.value);
    if (!object)
        failToFind("an object");
    return *object;
}

const JSONArray& JSONReader::elementValues() const {
    const auto* array = std::get_if<JSONArray>(&json.value);
    if (!array)
        failToFind("an array");
    return *array;
}

const JSONValue* JSONReader::find(std::string_view name) const {
    const JSONObject& object = members();
    const auto found = std::find_if(object.begin(), object.end(), [name](const JSONMember& member) {
        return member.name == name;
    });
    return found == object.end() ? nullptr : &found->value;
}

std::vector<std::string_view> JSONReader::names() const {
    std::vector<std::string_view> names;
    for (const JSONMember& member : members())
        names.push_back(member.name);
    return names;
}

JSONReader JSONReader::requiredMember(std::string_view name) const {
    const JSONValue* found = find(name);
    if (!found)
        fail(DecodingError::Kind::keyNotFound,
             "The member \"" + std::string(name) + "\" is missing.");
    return {*found, this, name};
}

bool JSONReader::boolean() const {
    const bool* value = std::get_if<bool>(&json.value);
    if (!value)
        failToFind("a truth value");
    return *value;
}

double JSONReader::number() const {
    if (const double* value = std::get_if<double>(&json.value))
        return *value;
    const std::int64_t* whole = std::get_if<std::int64_t>(&json.value);
    if (!whole)
        failToFind("a number");
    return static_cast<double>(*whole);
}

std::int64_t JSONReader::integer() const {
    if (const std::int64_t* value = std::get_if<std::int64_t>(&json.value))
        return *value;
    const double* number = std::get_if<double>(&json.value);
    if (!number)
        failToFind("an integer");
    // Whole numbers that fit are integers already, but for some spellings of zero.
    if (*number != 0)
        fail(DecodingError::Kind::dataCorrupted, "The number is no 64-bit integer.");
    return 0;
}

const std::string& JSONReader::text() const {
    const auto* value = std::get_if<std::string>(&json.value);
    if (!value)
        failToFind("a string");
    return *value;
}

} // namespace tervale
