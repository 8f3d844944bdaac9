#include "tervalectl/ProfileFile.h"

#include "Profiles/Bridge.h"
#include "Profiles/JSONCoding.h"
#include "tervalectl/Files.h"

namespace tervale {

std::vector<Profile> readProfiles(const std::string& path, Context& context) {
    auto decoded = decode<std::vector<Profile>>(files::read(path, context));
    if (const auto* error = std::get_if<DecodingError>(&decoded))
        throw refusal("No list of profiles is in " + files::nameOf(path) + ": " + error->text());
    return std::get<std::vector<Profile>>(std::move(decoded));
}

} // namespace tervale
