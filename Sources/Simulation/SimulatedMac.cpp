#include "Simulation/SimulatedMac.h"

#include "Base/Overloaded.h"
#include "Base/Precondition.h"
#include "Profiles/Profile.h"
#include "SMC/KernelStatus.h"
#include "SMC/SMCCodec.h"
#include "SMC/SMCResult.h"
#include "Simulation/SimulatedProcessor.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <cstring>

namespace tervale {

namespace {

constexpr auto* serviceClass = "AppleSMC";

/// The single-precision number in four bytes.
float floatIn(std::span<const std::byte> bytes) {
    float number = 0;
    std::memcpy(&number, bytes.data(), sizeof number);
    return number;
}

std::uint8_t codeOf(SMCCommand command) {
    return static_cast<std::uint8_t>(command);
}

} // namespace

SimulatedMac::SimulatedMac(const SimulatedMacOptions& options)
    : hardware(options.seed, options.scenario, options.hostLoad, options.fans, options.sensors),
      keys(options.fans, options.modeSpelling, hardware.sensors(), options.fillers, options.seed) {}

void SimulatedMac::inject(const std::string& key, Fault fault) {
    const SimulatedKey* found = keys.find(SMCCodec::fourCC(key));
    if (found == nullptr || found->name != key) {
        precondition(false, "a key that does not exist cannot fail");
        return;
    }
    // The value now, which is another fault's while there is one.
    std::vector<std::byte> held = value(*found);
    faults[key] = {fault, std::move(held)};
}

std::optional<IORegistry::Service> SimulatedMac::findService(const std::string& className) {
    const bool isController =
        className == serviceClass && !std::holds_alternative<service::Absent>(serviceState);
    if (!isController && className != simulatedProcessor::serviceClass)
        return std::nullopt;
    services.emplace(++lastHandle, isController ? Device::controller : Device::processor);
    return lastHandle;
}

IORegistry::Status SimulatedMac::open(Service service, std::uint32_t type, Connection& connection) {
    const auto found = services.find(service);
    if (found == services.end() || type != 0)
        return kernelStatus::badArgument;
    const auto* refusing = std::get_if<service::Refusing>(&serviceState);
    if (refusing != nullptr && found->second == Device::controller)
        return refusing->status;
    connections.emplace(++lastHandle, found->second);
    connection = lastHandle;
    return kernelStatus::success;
}

void SimulatedMac::release(Service service) {
    services.erase(service);
}

void SimulatedMac::close(Connection connection) {
    connections.erase(connection);
}

IORegistry::Status SimulatedMac::callStruct(Connection connection, std::uint32_t selector,
                                            const Structure& request, Structure& response) {
    const auto found = connections.find(connection);
    const bool isOpen = found != connections.end();
    if (isOpen && found->second == Device::processor)
        return callProcessor(selector, response);
    count(SMCStructure::fromBytes(request).command);
    return isOpen ? callController(selector, request, response) : kernelStatus::notOpen;
}

IORegistry::Status SimulatedMac::callProcessor(std::uint32_t selector, Structure& response) const {
    if (selector != simulatedProcessor::loadSelector)
        return kernelStatus::unsupported;
    response = simulatedProcessor::encode(load());
    return kernelStatus::success;
}

IORegistry::Status SimulatedMac::callController(std::uint32_t selector, const Structure& request,
                                                Structure& response) {
    const SMCStructure question = SMCStructure::fromBytes(request);
    if (everyCall)
        return *everyCall;
    if (selector != smcExchangeSelector)
        return kernelStatus::unsupported;
    const SimulatedKey* key =
        question.command == codeOf(SMCCommand::keyByIndex) ? nullptr : keys.find(question.key);
    if (const InjectedFault* injected = key != nullptr ? faultOf(*key) : nullptr)
        if (const auto* error = std::get_if<fault::KernelError>(&injected->fault))
            return error->status;
    SMCStructure answer = SMCStructure::fromBytes(response);
    answer.result = execute(question, key, answer);
    response = answer.toBytes();
    return kernelStatus::success;
}

void SimulatedMac::count(std::uint8_t command) {
    const auto oneIf = [command](SMCCommand kind) -> std::size_t {
        return command == codeOf(kind) ? 1 : 0;
    };
    ++counts.total;
    counts.reads += oneIf(SMCCommand::read);
    counts.writes += oneIf(SMCCommand::write);
    counts.keysByIndex += oneIf(SMCCommand::keyByIndex);
    counts.descriptions += oneIf(SMCCommand::keyInformation);
}

SimulatedMac::Result SimulatedMac::execute(const SMCStructure& request, const SimulatedKey* key,
                                           SMCStructure& response) {
    if (request.command == codeOf(SMCCommand::keyByIndex))
        return nameKey(request.index, response);
    if (request.command == codeOf(SMCCommand::keyInformation))
        return key == nullptr ? smcResult::unknownKey : describe(*key, response);
    if (request.command == codeOf(SMCCommand::read))
        return key == nullptr ? smcResult::unknownKey : read(*key, request, response);
    if (request.command == codeOf(SMCCommand::write))
        return key == nullptr ? smcResult::unknownKey : write(*key, request);
    return smcResult::unknownCommand;
}

const SimulatedMac::InjectedFault* SimulatedMac::faultOf(const SimulatedKey& key) const {
    const auto found = faults.find(key.name);
    return found == faults.end() ? nullptr : &found->second;
}

SimulatedMac::Result SimulatedMac::refusal(const SimulatedKey& key) const {
    const InjectedFault* injected = faultOf(key);
    if (injected == nullptr)
        return key.readResult;
    return std::visit(overloaded{[](const fault::Refused& refused) { return refused.result; },
                                 [](const fault::RefusedValue& refused) { return refused.result; },
                                 [&](const fault::KernelError&) { return key.readResult; },
                                 [&](const fault::DroppedOut&) { return key.readResult; },
                                 [&](const fault::Stuck&) { return key.readResult; }},
                      injected->fault);
}

std::vector<std::byte> SimulatedMac::value(const SimulatedKey& key) const {
    if (const InjectedFault* injected = faultOf(key)) {
        if (std::holds_alternative<fault::Stuck>(injected->fault))
            return injected->held;
        if (std::holds_alternative<fault::DroppedOut>(injected->fault))
            return std::vector<std::byte>(key.size);
    }
    return std::visit(overloaded{[](const keySource::Constant& source) { return source.bytes; },
                                 [&](const keySource::KeyCount&) {
                                     return keyBytes(key.type, static_cast<double>(keys.size()));
                                 },
                                 [&](const keySource::Unlock&) {
                                     return keyBytes(key.type, hardware.isUnlocked() ? 1 : 0);
                                 },
                                 [&](const keySource::FanValue& source) {
                                     return keyBytes(key.type, fanValue(source));
                                 },
                                 [&](const keySource::Sensor& source) {
                                     return keyBytes(key.type,
                                                     hardware.sensors().reading(source.index));
                                 }},
                      key.source);
}

double SimulatedMac::fanValue(const keySource::FanValue& source) const {
    const SimulatedFan& fan = hardware.fans().at(source.fan);
    switch (source.value) {
    case keySource::FanValue::actual:
        return fan.actual;
    case keySource::FanValue::target:
        return fan.target;
    case keySource::FanValue::min:
        return fan.limits.lower;
    case keySource::FanValue::max:
        return fan.limits.upper;
    case keySource::FanValue::mode:
        return fan.mode;
    }
    precondition(false, "a fan register that does not exist was read");
    return 0;
}

SimulatedMac::Result SimulatedMac::nameKey(std::uint32_t index, SMCStructure& response) const {
    if (index >= keys.size())
        return smcResult::unknownKey;
    response.key = SMCCodec::fourCC(keys[index].name);
    return smcResult::success;
}

SimulatedMac::Result SimulatedMac::describe(const SimulatedKey& key, SMCStructure& response) const {
    if (key.describeResult != smcResult::success)
        return key.describeResult;
    const InjectedFault* injected = faultOf(key);
    if (injected != nullptr)
        if (const auto* refused = std::get_if<fault::Refused>(&injected->fault))
            return refused->result;
    response.dataSize = key.size;
    response.dataType = SMCCodec::fourCC(key.type);
    return smcResult::success;
}

SimulatedMac::Result SimulatedMac::read(const SimulatedKey& key, const SMCStructure& request,
                                        SMCStructure& response) const {
    if (const Result refused = refusal(key); refused != smcResult::success)
        return refused;
    if (request.dataSize != key.size)
        return smcResult::wrongSize;
    const std::vector<std::byte> bytes = value(key);
    if (bytes.size() > response.bytes.size())
        return smcResult::notReadable;
    std::copy(bytes.begin(), bytes.end(), response.bytes.begin());
    return smcResult::success;
}

SimulatedMac::Result SimulatedMac::write(const SimulatedKey& key, const SMCStructure& request) {
    if (const Result refused = refusal(key); refused != smcResult::success)
        return refused;
    if (request.dataSize != key.size || key.size > request.bytes.size())
        return smcResult::wrongSize;
    const auto bytes = std::span(request.bytes).first(key.size);
    if (const auto* fan = std::get_if<keySource::FanValue>(&key.source))
        return writeFan(*fan, bytes);
    if (!std::holds_alternative<keySource::Unlock>(key.source))
        return smcResult::notWritable;
    if (bytes[0] != std::byte{0})
        hardware.unlock();
    else
        hardware.lock();
    return smcResult::success;
}

SimulatedMac::Result SimulatedMac::writeFan(const keySource::FanValue& source,
                                            std::span<const std::byte> bytes) {
    if (source.value == keySource::FanValue::mode) {
        const auto mode = std::to_integer<std::uint8_t>(bytes[0]);
        return hardware.setFanMode(source.fan, mode) ? smcResult::success : smcResult::notWritable;
    }
    if (source.value != keySource::FanValue::target)
        return smcResult::notWritable;
    const float rpm = floatIn(bytes);
    if (!std::isfinite(rpm))
        return smcResult::badValue;
    hardware.setFanTarget(source.fan, static_cast<double>(rpm));
    return smcResult::success;
}

} // namespace tervale
