#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

namespace tervale {

/// The user's preferences as a map from keys to blobs of bytes. Every operation may be called from
/// any thread; of two writers of a key the last wins.
class Preferences {
  public:
    using Data = std::vector<std::byte>;

    virtual ~Preferences() = default;

    /// Nothing when the key is absent, or holds something other than data or that cannot be read.
    virtual std::optional<Data> data(const std::string& key) const = 0;
    /// Whether anything is stored under the key, though it may not be readable.
    virtual bool contains(const std::string& key) const = 0;
    /// Why the value could not be stored, in the system's words; nothing if it was.
    virtual std::optional<std::string> setData(const std::string& key, const Data& data) = 0;
    /// Keeps what lies under the key, readable or not, under `copy` too, where nothing lies yet.
    /// It may then be there alone. False if that cannot be done.
    virtual bool keepCopy(const std::string& key, const std::string& copy) = 0;
    /// Those that begin with `prefix`, in order.
    virtual std::vector<std::string> keys(const std::string& prefix) const = 0;
    virtual void remove(const std::string& key) = 0;
};

} // namespace tervale
