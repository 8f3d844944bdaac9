#pragma once

#include "SMC/SMCCodec.h"
#include "SMC/SMCStructure.h"

#include <algorithm>
#include <map>
#include <string>

namespace tervale {

/// A controller whose keys are all of type "flt " but "FNum" and "#KEY", which it keeps itself, and
/// whose values a test writes as it likes. Counts what it is asked.
class FakeController final : public IORegistry {
  public:
    bool absent = false;
    /// Whether the number of keys cannot be read.
    bool failCount = false;
    int calls = 0;

    void setFan(int index, double actual, double target, double min = 1200, double max = 6000,
                double mode = 0) {
        const std::string fan = "F" + std::to_string(index);
        values[fan + "Ac"] = actual;
        values[fan + "Tg"] = target;
        values[fan + "Mn"] = min;
        values[fan + "Mx"] = max;
        values[fan + "md"] = mode;
        fans = std::max(fans, index + 1);
    }
    void setFanCount(int count) { fans = count; }
    void set(const std::string& key, double value) { values[key] = value; }
    /// The key fails from now on.
    void remove(const std::string& key) { values.erase(key); }

    std::optional<Service> findService(const std::string&) override {
        return absent ? std::nullopt : std::optional<Service>(1);
    }
    Status open(Service, std::uint32_t, Connection& connection) override {
        connection = 1;
        return 0;
    }
    void release(Service) override {}
    void close(Connection) override {}

    Status callStruct(Connection, std::uint32_t, const Structure& input,
                      Structure& output) override {
        ++calls;
        SMCStructure answer = SMCStructure::fromBytes(input);
        const std::string key = SMCCodec::fourCCString(answer.key);
        switch (static_cast<SMCCommand>(answer.command)) {
        case SMCCommand::keyByIndex:
            answer.key = SMCCodec::fourCC(std::next(values.begin(), answer.index)->first);
            break;
        case SMCCommand::keyInformation:
            answer.dataSize = 4;
            answer.dataType = SMCCodec::fourCC(isCount(key) ? "ui32" : "flt ");
            answer.result = answers(key) ? 0 : 132;
            break;
        case SMCCommand::read:
            answer.result = answers(key) ? 0 : 132;
            writeValue(key, answer);
            break;
        case SMCCommand::write:
            answer.result = 130;
            break;
        }
        output = answer.toBytes();
        return 0;
    }

  private:
    static bool isCount(const std::string& key) { return key == "FNum" || key == "#KEY"; }

    bool answers(const std::string& key) const {
        return key == "#KEY" ? !failCount : isCount(key) || values.contains(key);
    }

    void writeValue(const std::string& key, SMCStructure& answer) const {
        if (isCount(key)) {
            const auto count = key == "FNum" ? static_cast<std::size_t>(fans) : values.size();
            answer.bytes[2] = static_cast<std::byte>(count / 256);
            answer.bytes[3] = static_cast<std::byte>(count % 256);
        } else if (const auto value = values.find(key); value != values.end()) {
            std::ranges::copy(SMCCodec::encode("flt ", value->second), answer.bytes.begin());
        }
    }

    std::map<std::string, double> values;
    int fans = 0;
};

} // namespace tervale
