#include "TervaleWindow/Accessibility/AccessibleChildren.h"

#include <utility>

namespace tervale {

AccessibleChildren::AccessibleChildren(Maker make) : makeChild(std::move(make)) {}

AccessibleChildren::~AccessibleChildren() {
    renew();
}

QAccessibleInterface* AccessibleChildren::at(int place) {
    while (static_cast<int>(made.size()) <= place)
        made.push_back(
            QAccessible::registerAccessibleInterface(makeChild(static_cast<int>(made.size()))));
    return QAccessible::accessibleInterface(made[static_cast<std::size_t>(place)]);
}

int AccessibleChildren::indexOf(const QAccessibleInterface* child) const {
    for (std::size_t place = 0; child && place < made.size(); ++place) {
        if (QAccessible::accessibleInterface(made[place]) == child)
            return static_cast<int>(place);
    }
    return -1;
}

void AccessibleChildren::renew() {
    for (const QAccessible::Id child : std::exchange(made, {}))
        QAccessible::deleteAccessibleInterface(child);
}

} // namespace tervale
