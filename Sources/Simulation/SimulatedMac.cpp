#include "Simulation/SimulatedMac.h"

#include "Profiles/Profile.h"
#include "SMC/Precondition.h"
#include "SMC/SMCCodec.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <cstring>

namespace tervale {

namespace {

constexpr auto succeeded = std::uint8_t{0};
constexpr auto unknownCommand = std::uint8_t{130};
constexpr auto unknownKey = std::uint8_t{132};
constexpr auto notReadable = std::uint8_t{133};
constexpr auto notWritable = std::uint8_t{134};
constexpr auto wrongSize = std::uint8_t{135};
constexpr auto badValue = std::uint8_t{137};

constexpr auto kernelSuccess = IORegistry::Status{0};
constexpr auto kernelBadArgument = static_cast<IORegistry::Status>(0xe00002c2);
constexpr auto kernelUnsupported = static_cast<IORegistry::Status>(0xe00002c7);
constexpr auto kernelNotOpen = static_cast<IORegistry::Status>(0xe00002cd);

constexpr std::uint32_t structureSelector = 2;
constexpr auto* serviceClass = "AppleSMC";

/// Where the fields of a request or response lie.
namespace field {
constexpr std::size_t key = 0;
constexpr std::size_t dataSize = 28;
constexpr std::size_t dataType = 32;
constexpr std::size_t result = 40;
constexpr std::size_t command = 42;
constexpr std::size_t index = 44;
constexpr std::size_t data = 48;
} // namespace field

namespace commandCode {
constexpr std::uint8_t read = 5;
constexpr std::uint8_t write = 6;
constexpr std::uint8_t keyByIndex = 8;
constexpr std::uint8_t describe = 9;
} // namespace commandCode

std::uint32_t numberAt(const IORegistry::Structure& structure, std::size_t offset) {
    std::uint32_t number = 0;
    std::memcpy(&number, structure.data() + offset, sizeof number);
    return number;
}

void setNumber(IORegistry::Structure& structure, std::size_t offset, std::uint32_t number) {
    std::memcpy(structure.data() + offset, &number, sizeof number);
}

/// The single-precision number in four bytes.
float floatIn(std::span<const std::byte> bytes) {
    float number = 0;
    std::memcpy(&number, bytes.data(), sizeof number);
    return number;
}

} // namespace

SimulatedMac::SimulatedMac(const SimulatedMacOptions& options)
    : machine(options.seed, options.scenario, options.hostLoad, options.fans, options.sensors),
      keys(options.fans, options.modeSpelling, machine.sensors(), options.fillers, options.seed) {}

void SimulatedMac::inject(const std::string& key, Fault fault) {
    const SimulatedKey* found = keys.find(SMCCodec::fourCC(key));
    precondition(found != nullptr && found->name == key, "a key that does not exist cannot fail");
    // The value now, which is another fault's while there is one.
    std::vector<std::byte> held = value(*found);
    faults[key] = {fault, std::move(held)};
}

std::optional<IORegistry::Service> SimulatedMac::findService(const std::string& className) {
    if (className != serviceClass || std::holds_alternative<service::Absent>(serviceState))
        return std::nullopt;
    return *services.insert(++lastHandle).first;
}

IORegistry::Status SimulatedMac::open(Service service, std::uint32_t type, Connection& connection) {
    if (!services.contains(service) || type != 0)
        return kernelBadArgument;
    if (const auto* refusing = std::get_if<service::Refusing>(&serviceState))
        return refusing->status;
    connection = *connections.insert(++lastHandle).first;
    return kernelSuccess;
}

void SimulatedMac::release(Service service) {
    services.erase(service);
}

void SimulatedMac::close(Connection connection) {
    connections.erase(connection);
}

IORegistry::Status SimulatedMac::callStruct(Connection connection, std::uint32_t selector,
                                            const Structure& request, Structure& response) {
    const auto command = std::to_integer<std::uint8_t>(request[field::command]);
    count(command);
    if (!connections.contains(connection))
        return kernelNotOpen;
    if (everyCall)
        return *everyCall;
    if (selector != structureSelector)
        return kernelUnsupported;
    const auto answer = [&response](Result result) {
        response[field::result] = std::byte{result};
        return kernelSuccess;
    };
    if (command == commandCode::keyByIndex)
        return answer(nameKey(numberAt(request, field::index), response));
    const SimulatedKey* key = keys.find(numberAt(request, field::key));
    if (const InjectedFault* injected = key != nullptr ? faultOf(*key) : nullptr)
        if (const auto* error = std::get_if<fault::KernelError>(&injected->fault))
            return error->status;
    return answer(keyCommand(command, key, request, response));
}

void SimulatedMac::count(std::uint8_t command) {
    ++counts.total;
    counts.reads += command == commandCode::read ? 1 : 0;
    counts.writes += command == commandCode::write ? 1 : 0;
    counts.keysByIndex += command == commandCode::keyByIndex ? 1 : 0;
    counts.descriptions += command == commandCode::describe ? 1 : 0;
}

SimulatedMac::Result SimulatedMac::keyCommand(std::uint8_t command, const SimulatedKey* key,
                                              const Structure& request, Structure& response) {
    switch (command) {
    case commandCode::describe:
        return key == nullptr ? unknownKey : describe(*key, response);
    case commandCode::read:
        return key == nullptr ? unknownKey : read(*key, request, response);
    case commandCode::write:
        return key == nullptr ? unknownKey : write(*key, request);
    default:
        return unknownCommand;
    }
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
                                     return keyBytes(key.type, machine.isUnlocked() ? 1 : 0);
                                 },
                                 [&](const keySource::FanValue& source) {
                                     return keyBytes(key.type, fanValue(source));
                                 },
                                 [&](const keySource::Sensor& source) {
                                     return keyBytes(key.type,
                                                     machine.sensors().reading(source.index));
                                 }},
                      key.source);
}

double SimulatedMac::fanValue(const keySource::FanValue& source) const {
    const SimulatedFan& fan = machine.fans().at(source.fan);
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

SimulatedMac::Result SimulatedMac::nameKey(std::uint32_t index, Structure& response) const {
    if (index >= keys.size())
        return unknownKey;
    setNumber(response, field::key, SMCCodec::fourCC(keys[index].name));
    return succeeded;
}

SimulatedMac::Result SimulatedMac::describe(const SimulatedKey& key, Structure& response) const {
    if (key.describeResult != succeeded)
        return key.describeResult;
    const InjectedFault* injected = faultOf(key);
    if (injected != nullptr)
        if (const auto* refused = std::get_if<fault::Refused>(&injected->fault))
            return refused->result;
    setNumber(response, field::dataSize, key.size);
    setNumber(response, field::dataType, SMCCodec::fourCC(key.type));
    return succeeded;
}

SimulatedMac::Result SimulatedMac::read(const SimulatedKey& key, const Structure& request,
                                        Structure& response) const {
    if (const Result refused = refusal(key); refused != succeeded)
        return refused;
    if (numberAt(request, field::dataSize) != key.size)
        return wrongSize;
    const std::vector<std::byte> bytes = value(key);
    if (bytes.size() > response.size() - field::data)
        return notReadable;
    std::copy(bytes.begin(), bytes.end(), response.begin() + field::data);
    return succeeded;
}

SimulatedMac::Result SimulatedMac::write(const SimulatedKey& key, const Structure& request) {
    if (const Result refused = refusal(key); refused != succeeded)
        return refused;
    if (numberAt(request, field::dataSize) != key.size || key.size > request.size() - field::data)
        return wrongSize;
    const auto bytes = std::span(request).subspan(field::data, key.size);
    if (const auto* fan = std::get_if<keySource::FanValue>(&key.source))
        return writeFan(*fan, bytes);
    if (!std::holds_alternative<keySource::Unlock>(key.source))
        return notWritable;
    if (bytes[0] != std::byte{0})
        machine.unlock();
    else
        machine.lock();
    return succeeded;
}

SimulatedMac::Result SimulatedMac::writeFan(const keySource::FanValue& source,
                                            std::span<const std::byte> bytes) {
    if (source.value == keySource::FanValue::mode) {
        const auto mode = std::to_integer<std::uint8_t>(bytes[0]);
        return machine.setFanMode(source.fan, mode) ? succeeded : notWritable;
    }
    if (source.value != keySource::FanValue::target)
        return notWritable;
    const float rpm = floatIn(bytes);
    if (!std::isfinite(rpm))
        return badValue;
    machine.setFanTarget(source.fan, static_cast<double>(rpm));
    return succeeded;
}

} // namespace tervale
