#pragma once

#include "SMC/IORegistry.h"
#include "SMC/SMCStructure.h"
#include "Simulation/Fault.h"
#include "Simulation/KeyTable.h"
#include "Simulation/SimulatedHardware.h"

#include <cstddef>
#include <cstdint>
#include <map>
#include <optional>
#include <span>
#include <string>
#include <unordered_map>
#include <vector>

namespace tervale {

struct SimulatedMacOptions {
    std::uint64_t seed = 1;
    Scenario scenario = Scenario::work;
    /// For `Scenario::host`.
    LoadReading hostLoad{};
    /// At most 10.
    std::size_t fans = 2;
    /// At most `SensorBank::most`.
    std::size_t sensors = 150;
    /// Keys of no interest; a real controller has more than a thousand of them.
    std::size_t fillers = 1400;
    ModeSpelling modeSpelling = ModeSpelling::lowerCase;
};

/// A Mac in virtual time, seen through its system management controller, which answers the same
/// 80-byte requests as a real one. Whatever should go wrong can be made to. One thread.
class SimulatedMac final : public IORegistry {
  public:
    /// The calls that the controller has had, and how many of each kind.
    struct CallCounts {
        std::size_t total = 0;
        std::size_t descriptions = 0;
        std::size_t keysByIndex = 0;
        std::size_t reads = 0;
        std::size_t writes = 0;

        bool operator==(const CallCounts&) const = default;
    };

    explicit SimulatedMac(const SimulatedMacOptions& options = {});

    void advance(double seconds) { hardware.advance(seconds); }
    /// Percent of the processor in use.
    double load() const { return hardware.workload().processor * 100; }
    std::size_t keyCount() const { return keys.size(); }

    /// Gives the key a fault, in place of one that it had. The key exists.
    void inject(const std::string& key, Fault fault);
    void heal(const std::string& key) { faults.erase(key); }
    /// Ends every exchange with this status, or no longer.
    void failEveryCall(std::optional<Status> status) { everyCall = status; }
    void setService(ServiceState state) { serviceState = state; }

    const CallCounts& calls() const { return counts; }
    void resetCalls() { counts = {}; }
    std::size_t openConnections() const { return connections.size(); }
    /// How many services have been found and not yet released.
    std::size_t heldServices() const { return services.size(); }

    std::optional<Service> findService(const std::string& className) override;
    Status open(Service service, std::uint32_t type, Connection& connection) override;
    void release(Service service) override;
    Status callStruct(Connection connection, std::uint32_t selector, const Structure& request,
                      Structure& response) override;
    void close(Connection connection) override;

  private:
    /// The controller's result code; 0 is success.
    using Result = std::uint8_t;
    struct InjectedFault {
        Fault fault;
        /// The value of a key that is stuck.
        std::vector<std::byte> held;
    };

    /// What a service belongs to.
    enum class Device : std::uint8_t { controller, processor };

    Status callController(std::uint32_t selector, const Structure& request, Structure& response);
    Status callProcessor(std::uint32_t selector, Structure& response) const;
    void count(std::uint8_t command);
    const InjectedFault* faultOf(const SimulatedKey& key) const;
    std::vector<std::byte> value(const SimulatedKey& key) const;
    double fanValue(const keySource::FanValue& source) const;

    Result refusal(const SimulatedKey& key) const;

    Result execute(const SMCStructure& request, const SimulatedKey* key, SMCStructure& response);
    Result nameKey(std::uint32_t index, SMCStructure& response) const;
    Result describe(const SimulatedKey& key, SMCStructure& response) const;
    Result read(const SimulatedKey& key, const SMCStructure& request, SMCStructure& response) const;
    Result write(const SimulatedKey& key, const SMCStructure& request);
    Result writeFan(const keySource::FanValue& source, std::span<const std::byte> bytes);

    SimulatedHardware hardware;
    KeyTable keys;
    std::unordered_map<std::string, InjectedFault> faults;
    std::optional<Status> everyCall;
    ServiceState serviceState;
    std::map<Service, Device> services;
    std::map<Connection, Device> connections;
    std::uint32_t lastHandle = 0;
    CallCounts counts;
};

} // namespace tervale
