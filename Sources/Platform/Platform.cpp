#include "Platform/Platform.h"

#include "Platform/AbsentIORegistry.h"
#include "Platform/Linux/FilePreferences.h"
#include "Platform/ProcessorLoad.h"

namespace tervale {

Platform makePlatform(InProcessNotificationCenter::Dispatch dispatch) {
    return {std::make_unique<AbsentIORegistry>(),
            std::make_unique<InProcessNotificationCenter>(std::move(dispatch))};
}

std::unique_ptr<Preferences> makePreferences(const std::string& domain) {
    return std::make_unique<FilePreferences>(configurationFolder() / domain);
}

std::function<std::optional<double>()> makeProcessorLoad() {
    return [load = ProcessorLoad()]() mutable { return load.read(); };
}

} // namespace tervale
