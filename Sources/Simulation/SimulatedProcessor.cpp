#include "Simulation/SimulatedProcessor.h"

#include <bit>
#include <cstring>
#include <utility>

namespace tervale {

namespace {

static_assert(std::endian::native == std::endian::little, "the load is sent as it lies here");

/// An open connection to a simulated processor.
class Connection {
  public:
    /// Null for a machine that has none.
    static std::shared_ptr<Connection> to(const std::shared_ptr<IORegistry>& registry) {
        const auto service = registry->findService(simulatedProcessor::serviceClass);
        if (!service)
            return nullptr;
        IORegistry::Connection opened = 0;
        const bool isOpen = registry->open(*service, 0, opened) == 0;
        registry->release(*service);
        return isOpen ? std::make_shared<Connection>(registry, opened) : nullptr;
    }
    Connection(std::shared_ptr<IORegistry> owner, IORegistry::Connection opened)
        : registry(std::move(owner)),
          number(opened) {}
    ~Connection() { registry->close(number); }
    Connection(const Connection&) = delete;
    Connection& operator=(const Connection&) = delete;

    std::optional<double> load() const {
        IORegistry::Structure response{};
        if (registry->callStruct(number, simulatedProcessor::loadSelector, {}, response) != 0)
            return std::nullopt;
        return simulatedProcessor::decode(response);
    }

  private:
    std::shared_ptr<IORegistry> registry;
    IORegistry::Connection number;
};

} // namespace

IORegistry::Structure simulatedProcessor::encode(double load) {
    IORegistry::Structure structure{};
    std::memcpy(structure.data(), &load, sizeof load);
    return structure;
}

std::optional<double> simulatedProcessor::decode(const IORegistry::Structure& response) {
    double load = 0;
    std::memcpy(&load, response.data(), sizeof load);
    // Not a number is refused as well.
    return load >= 0 && load <= 100 ? std::optional(load) : std::nullopt;
}

LoadReading simulatedProcessor::loadOf(const std::shared_ptr<IORegistry>& registry,
                                       LoadReading host) {
    const auto connection = Connection::to(registry);
    if (!connection)
        return host;
    return [connection] { return connection->load(); };
}

} // namespace tervale
