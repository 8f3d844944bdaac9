#pragma once

#include "SMC/IORegistry.h"

#include <cstdint>
#include <functional>
#include <map>
#include <set>
#include <string>
#include <vector>

namespace tervale {

/// What stands behind the fakes of the system's functions: one service, and what is held of it.
/// Releasing or closing what is not held, and using what has been given back, fails the test.
class FakeKernel {
  public:
    static constexpr std::uint32_t task = 0x103;
    static constexpr std::uint32_t host = 0x203;
    static constexpr std::int32_t success = 0;

    /// Answers one exchange: fills the response and returns the status.
    using Exchange = std::function<IORegistry::Status(const IORegistry::Structure& request,
                                                      IORegistry::Structure& response)>;

    /// The one that the fakes ask. There is one at a time.
    static FakeKernel& current();

    FakeKernel();
    ~FakeKernel();
    FakeKernel(const FakeKernel&) = delete;
    FakeKernel& operator=(const FakeKernel&) = delete;

    // How it behaves.
    std::string serviceClass = "AppleSMC";
    bool makesDictionaries = true;
    std::int32_t openStatus = success;
    Exchange exchange = [](const auto&, auto&) { return success; };
    /// How much of a response it hands over.
    std::size_t answerSize = 80;
    std::int32_t statisticsStatus = success;
    /// In user programs, in the system, idle, in programs of low priority.
    std::vector<std::uint32_t> ticks{0, 0, 0, 0};

    // What it has seen.
    std::vector<std::string> sequence;

    /// What the program holds.
    std::set<const void*> dictionaries;
    std::map<std::uint32_t, int> services;
    std::set<std::uint32_t> connections;
    int hostReferences = 0;

    std::uint32_t newHandle() { return ++lastHandle; }

  private:
    std::uint32_t lastHandle = 0x1000;
};

} // namespace tervale
