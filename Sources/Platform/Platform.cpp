#include "Platform/Platform.h"

#include "Platform/AbsentIORegistry.h"
#include "Platform/ProcessorLoad.h"
#include "Profiles/InMemoryPreferences.h"

namespace tervale {

Platform makePlatform(InProcessNotificationCenter::Dispatch dispatch) {
    return {std::make_unique<AbsentIORegistry>(),
            std::make_unique<InProcessNotificationCenter>(std::move(dispatch))};
}

std::unique_ptr<Preferences> makePreferences(const std::string&) {
    return std::make_unique<InMemoryPreferences>();
}

std::function<std::optional<double>()> makeProcessorLoad() {
    return [load = ProcessorLoad()]() mutable { return load.read(); };
}

} // namespace tervale
