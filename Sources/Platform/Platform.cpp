#include "Platform/Platform.h"

#include "Platform/AbsentIORegistry.h"

namespace tervale {

Platform makePlatform(InProcessNotificationCenter::Dispatch dispatch) {
    return {std::make_unique<AbsentIORegistry>(),
            std::make_unique<InProcessNotificationCenter>(std::move(dispatch))};
}

} // namespace tervale
