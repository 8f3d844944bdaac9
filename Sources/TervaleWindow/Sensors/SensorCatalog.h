#pragma once

#include "TervaleWindow/Model/Model.h"

#include <QLocale>
#include <QString>

#include <vector>

namespace tervale {

/// One sensor of the list.
struct SensorRow {
    TemperatureSensor sensor;
    QString name;
    /// Degrees Celsius.
    double value = 0;

    bool operator==(const SensorRow&) const = default;
};

/// A group's sensors that are listed, by their keys.
struct SensorSection {
    SensorGroup group;
    std::vector<SensorRow> rows;

    QString title() const;
    /// How many are listed, such as "7 sensors".
    QString count() const;

    bool operator==(const SensorSection&) const = default;
};

/// The sensors in the order in which they are listed, prepared for being searched by name.
class SensorCatalog {
  public:
    /// Case is ignored in the manner of `locale`.
    SensorCatalog(const std::vector<TemperatureSensor>& sensors, const QLocale& locale);

    /// One section for each group, in their order, of the sensors that have a reading and whose
    /// name contains `search`; every name contains an empty one.
    std::vector<SensorSection> sections(const QString& search,
                                        const Model::Readings& readings) const;

  private:
    struct Entry {
        TemperatureSensor sensor;
        QString name;
        QString foldedName;
    };

    QLocale locale;
    std::vector<Entry> entries;
};

} // namespace tervale
