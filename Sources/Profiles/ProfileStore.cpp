#include "Profiles/ProfileStore.h"

#include "JSON/JSON.h"
#include "Profiles/Bridge.h"

#include <optional>
#include <string_view>

namespace tervale {

namespace {

template <class Value>
std::optional<Value> decodeStored(const Preferences& defaults, const char* key) {
    const std::optional<Preferences::Data> data = defaults.data(key);
    if (!data)
        return std::nullopt;
    const Decoded<Value> decoded =
        decode<Value>({reinterpret_cast<const char*>(data->data()), data->size()});
    const Value* value = std::get_if<Value>(&decoded);
    return value ? std::optional(*value) : std::nullopt;
}

template <class Value>
void encodeStored(Preferences& defaults, const char* key, const Value& value) {
    std::string text;
    try {
        text = encode(value);
    } catch (const EncodingError&) {
        return;
    }
    const auto* bytes = reinterpret_cast<const std::byte*>(text.data());
    defaults.setData(key, Preferences::Data(bytes, bytes + text.size()));
}

} // namespace

std::vector<Profile> ProfileStore::profiles() const {
    return decodeStored<std::vector<Profile>>(defaults, profilesKey)
        .value_or(std::vector<Profile>());
}

void ProfileStore::setProfiles(const std::vector<Profile>& profiles) {
    encodeStored(defaults, profilesKey, profiles);
}

Action ProfileStore::selection() const {
    return decodeStored<Action>(defaults, selectionKey).value_or(action::Automatic{});
}

void ProfileStore::setSelection(const Action& selection) {
    encodeStored(defaults, selectionKey, selection);
}

} // namespace tervale
