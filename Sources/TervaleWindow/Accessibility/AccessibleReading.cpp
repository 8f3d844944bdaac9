#include "TervaleWindow/Accessibility/AccessibleReading.h"

#include <QMetaType>

namespace tervale {

namespace {

struct Reading {
    double number = 0;
    QString text;

    double toNumber() const { return number; }
    QString toText() const { return text; }
};

bool registerConversions() {
    return QMetaType::registerConverter<Reading, double>(&Reading::toNumber) &&
           QMetaType::registerConverter<Reading, QString>(&Reading::toText);
}

} // namespace

QVariant accessibleReading(double number, const QString& text) {
    [[maybe_unused]] static const bool registered = registerConversions();
    return QVariant::fromValue(Reading{number, text});
}

} // namespace tervale
