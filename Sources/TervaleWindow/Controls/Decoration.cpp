#include "TervaleWindow/Controls/Decoration.h"

#include <QLabel>
#include <QVariant>

namespace tervale {

namespace {
constexpr const char* decorationProperty = "tervaleDecoration";
}

void markAsDecoration(QWidget& widget) {
    widget.setProperty(decorationProperty, true);
}

bool isDecoration(const QWidget& widget) {
    const auto* label = qobject_cast<const QLabel*>(&widget);
    return widget.property(decorationProperty).toBool() || (label && label->buddy());
}

} // namespace tervale
