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
    virtual void setData(const std::string& key, const Data& data) = 0;
};

} // namespace tervale
