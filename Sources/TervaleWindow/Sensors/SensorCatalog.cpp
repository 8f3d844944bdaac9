#include "TervaleWindow/Sensors/SensorCatalog.h"

#include <algorithm>

namespace tervale {

namespace {

/// A text in which letters that differ only in their case are the same.
QString folded(QString text, const QLocale& locale) {
    // Where the dotted and the dotless i are two letters, folding as elsewhere would mix them up.
    if (locale.language() == QLocale::Turkish || locale.language() == QLocale::Azerbaijani)
        text.replace(u'I', u'ı').replace(u'İ', u'i');
    return text.toCaseFolded();
}

} // namespace

QString SensorSection::title() const {
    const auto text = group.title();
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

QString SensorSection::count() const {
    return QString::number(rows.size()) + QStringLiteral(" sensors");
}

SensorCatalog::SensorCatalog(const std::vector<TemperatureSensor>& sensors,
                             const QLocale& userLocale)
    : locale(userLocale) {
    for (const TemperatureSensor& sensor : sensors) {
        const QString name = QString::fromStdString(sensor.name());
        entries.push_back({sensor, name, folded(name, locale)});
    }
    std::stable_sort(entries.begin(), entries.end(), [](const Entry& one, const Entry& other) {
        return one.sensor.key < other.sensor.key;
    });
}

std::vector<SensorSection> SensorCatalog::sections(const QString& search,
                                                   const Model::Readings& readings) const {
    std::vector<SensorSection> sections;
    sections.reserve(SensorGroup::allCases.size());
    for (const SensorGroup group : SensorGroup::allCases)
        sections.push_back({group, {}});
    const QString sought = folded(search, locale);
    for (const Entry& entry : entries) {
        if (!entry.foldedName.contains(sought))
            continue;
        if (const auto reading = readings.find(entry.sensor); reading != readings.end())
            sections[entry.sensor.group].rows.push_back(
                {entry.sensor, entry.name, reading->second});
    }
    return sections;
}

} // namespace tervale
