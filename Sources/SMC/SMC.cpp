#include "SMC/SMC.h"

#include "Base/Precondition.h"
#include "SMC/ControllerService.h"
#include "SMC/SMCCodec.h"
#include "SMC/SMCResult.h"
#include "SMC/SMCStructure.h"

#include <algorithm>
#include <cstdio>
#include <limits>

namespace tervale {

namespace {

std::string hexadecimal(IORegistry::Status status) {
    char text[9];
    std::snprintf(text, sizeof text, "%x", static_cast<unsigned>(status));
    return text;
}

SMCStructure requestOf(SMCCommand command, std::uint32_t key) {
    SMCStructure request;
    request.key = key;
    request.command = static_cast<std::uint8_t>(command);
    return request;
}

SMCStructure descriptionRequest(const std::string& key) {
    return requestOf(SMCCommand::keyInformation, SMCCodec::fourCC(key));
}

SMCError refusal(const std::string& key, std::uint8_t result) {
    return SMCError(key + ": SMC error " + std::to_string(result));
}

} // namespace

SMC::SMC(IORegistry& machine) : registry(machine) {
    conn = openController(registry);
}

SMC::~SMC() {
    registry.close(conn);
}

std::optional<SMCStructure> SMC::ask(const std::string& key, const SMCStructure& request) {
    IORegistry::Structure response{};
    const IORegistry::Status status =
        registry.callStruct(conn, smcExchangeSelector, request.toBytes(), response);
    if (status != 0)
        throw SMCError(key + ": IOKit error 0x" + hexadecimal(status));
    const auto answer = SMCStructure::fromBytes(response);
    if (answer.result == smcResult::unknownKey)
        return std::nullopt;
    if (answer.result != 0)
        throw refusal(key, answer.result);
    return answer;
}

SMCStructure SMC::call(const std::string& key, const SMCStructure& request) {
    if (const auto answer = ask(key, request))
        return *answer;
    throw refusal(key, smcResult::unknownKey);
}

SMC::Info SMC::info(const std::string& key) {
    if (const auto known = infoCache.find(key); known != infoCache.end())
        return known->second;
    const SMCStructure answer = call(key, descriptionRequest(key));
    if (answer.dataSize > answer.bytes.size())
        throw SMCError(key + ": size " + std::to_string(answer.dataSize) + " too large");
    return infoCache.emplace(key, Info{answer.dataSize, SMCCodec::fourCCString(answer.dataType)})
        .first->second;
}

bool SMC::exists(const std::string& key) {
    try {
        info(key);
        return true;
    } catch (const SMCError&) {
        return false;
    }
}

bool SMC::has(const std::string& key) {
    return infoCache.contains(key) || ask(key, descriptionRequest(key)).has_value();
}

double SMC::read(const std::string& key) {
    const Info description = info(key);
    SMCStructure request = requestOf(SMCCommand::read, SMCCodec::fourCC(key));
    request.dataSize = description.size;
    const SMCStructure answer = call(key, request);
    return SMCCodec::decode(description.type, std::span(answer.bytes).first(description.size));
}

void SMC::write(const std::string& key, double value) {
    const Info description = info(key);
    const auto bytes = SMCCodec::encode(description.type, value);
    if (bytes.size() != description.size)
        throw SMCError(key + ": size mismatch");
    SMCStructure request = requestOf(SMCCommand::write, SMCCodec::fourCC(key));
    request.dataSize = description.size;
    std::copy(bytes.begin(), bytes.end(), request.bytes.begin());
    call(key, request);
}

std::int64_t SMC::keyCount() {
    return truncatedToInteger(read("#KEY"));
}

std::int64_t SMC::fanCount() {
    return truncatedToInteger(read("FNum"));
}

std::string SMC::key(std::int64_t index) {
    precondition(index >= 0 && index <= std::numeric_limits<std::uint32_t>::max(),
                 "a key's index must fit 32 bits");
    SMCStructure request = requestOf(SMCCommand::keyByIndex, 0);
    request.index = static_cast<std::uint32_t>(index);
    // The request bears no key, so its errors begin with the four zeros of an empty code.
    return SMCCodec::fourCCString(call(SMCCodec::fourCCString(0), request).key);
}

} // namespace tervale
