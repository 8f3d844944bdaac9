#include "TervaleWindow/Sensors/SensorCatalog.h"

#include <gtest/gtest.h>

using namespace tervale;

namespace {

const QLocale english(QLocale::English, QLocale::UnitedKingdom);
const QLocale turkish(QLocale::Turkish, QLocale::Turkey);

std::vector<TemperatureSensor> sensorsOf(const std::vector<std::string>& keys) {
    std::vector<TemperatureSensor> sensors;
    for (const std::string& key : keys)
        sensors.push_back({key, *SensorGroup::of(key)});
    return sensors;
}

Model::Readings allAt(double value, const std::vector<TemperatureSensor>& sensors) {
    Model::Readings readings;
    for (const TemperatureSensor& sensor : sensors)
        readings[sensor] = value;
    return readings;
}

/// The names that are listed, in order, through all sections.
QStringList listed(const std::vector<std::string>& keys, const QString& search = {},
                   const QLocale& locale = english) {
    const auto sensors = sensorsOf(keys);
    QStringList names;
    for (const SensorSection& section :
         SensorCatalog(sensors, locale).sections(search, allAt(40, sensors))) {
        for (const SensorRow& row : section.rows)
            names << row.name;
    }
    return names;
}

QStringList counts(const std::vector<std::string>& keys, const QString& search = {}) {
    const auto sensors = sensorsOf(keys);
    QStringList counts;
    for (const SensorSection& section :
         SensorCatalog(sensors, english).sections(search, allAt(40, sensors)))
        counts << section.count();
    return counts;
}

} // namespace

TEST(SensorCatalog, HasASectionForEveryGroupInTheirOrder) {
    const auto sections = SensorCatalog({}, english).sections({}, {});
    QStringList titles;
    for (const SensorSection& section : sections)
        titles << section.title();
    EXPECT_EQ(titles, QStringList({"CPU", "GPU", "Memory", "SSD", "Power", "Other"}));
}

TEST(SensorCatalog, CountsAlwaysInThePlural) {
    EXPECT_EQ(counts({"Tp01", "Tp02", "Tg01"}),
              QStringList(
                  {"2 sensors", "1 sensors", "0 sensors", "0 sensors", "0 sensors", "0 sensors"}));
}

TEST(SensorCatalog, CountsWithoutSeparators) {
    SensorSection section{SensorGroup::cpu, {}};
    section.rows.resize(2000, {{"Tp01", SensorGroup::cpu}, "CPU Tp01", 40});
    EXPECT_EQ(section.count(), "2000 sensors");
}

TEST(SensorCatalog, SortsByThePlainTextOfTheKeys) {
    EXPECT_EQ(listed({"Tp0a", "Tp0A", "Tp01", "Te0L"}),
              QStringList({"CPU Te0L", "CPU Tp01", "CPU Tp0A", "CPU Tp0a"}));
}

TEST(SensorCatalog, SortsByKeysNotByNames) {
    EXPECT_EQ(listed({"TaLP", "TZ0P", "TW0P"}), QStringList({"Wi-Fi", "Other TZ0P", "Other TaLP"}));
}

TEST(SensorCatalog, KeepsSensorsOfOneKeyInTheirOrder) {
    const std::vector<TemperatureSensor> sensors{{"TH0x", SensorGroup::other},
                                                 {"TH0x", SensorGroup::ssd}};
    Model::Readings readings;
    readings[sensors[0]] = 30;
    readings[sensors[1]] = 50;
    const auto sections = SensorCatalog(sensors, english).sections({}, readings);
    EXPECT_EQ(sections[SensorGroup::ssd].rows, (std::vector<SensorRow>{{sensors[1], "SSD", 50}}));
    EXPECT_EQ(sections[SensorGroup::other].rows, (std::vector<SensorRow>{{sensors[0], "SSD", 30}}));
}

TEST(SensorCatalog, ListsOnlySensorsWithAReading) {
    const auto sensors = sensorsOf({"Tp01", "Tp05", "Tg05"});
    Model::Readings readings = allAt(61.5, sensors);
    readings.erase(sensors[0]);
    const auto sections = SensorCatalog(sensors, english).sections({}, readings);
    EXPECT_EQ(sections[SensorGroup::cpu].rows,
              (std::vector<SensorRow>{{sensors[1], "CPU Tp05", 61.5}}));
    EXPECT_EQ(sections[SensorGroup::cpu].count(), "1 sensors");
    EXPECT_TRUE(SensorCatalog(sensors, english).sections({}, {})[0].rows.empty());
}

TEST(SensorCatalog, IgnoresReadingsOfUnknownSensors) {
    const auto readings = allAt(40, sensorsOf({"Tp01"}));
    for (const SensorSection& section : SensorCatalog({}, english).sections({}, readings))
        EXPECT_TRUE(section.rows.empty());
}

TEST(SensorCatalog, FiltersByThePartOfANameInAnyCase) {
    const std::vector<std::string> keys{"Tp01", "Tg05", "Tg0D", "TW0P", "TH0x"};
    for (const QString search : {"gpu", "GPU", "gPu"})
        EXPECT_EQ(listed(keys, search), QStringList({"GPU Tg05", "GPU Tg0D"}));
    EXPECT_EQ(listed(keys, "tg0d"), QStringList({"GPU Tg0D"}));
    EXPECT_EQ(listed(keys, "wi-F"), QStringList({"Wi-Fi"}));
    EXPECT_EQ(listed(keys, "pu t"), QStringList({"CPU Tp01", "GPU Tg05", "GPU Tg0D"}));
    EXPECT_EQ(counts(keys, "gpu")[SensorGroup::gpu], "2 sensors");
    EXPECT_EQ(counts(keys, "gpu")[SensorGroup::cpu], "0 sensors");
}

TEST(SensorCatalog, LooksForTheNameThatIsShownNotForTheKey) {
    EXPECT_TRUE(listed({"TH0x", "TW0P"}, "T").isEmpty());
    EXPECT_EQ(listed({"TH0x", "TH0a"}, "TH0"), QStringList({"SSD TH0a"}));
}

TEST(SensorCatalog, TakesTheSearchForWhatItIs) {
    const std::vector<std::string> keys{"Tp01", "TH0x"};
    for (const QString search : {"*", ".", "[CS]PU", "C.U", "  "})
        EXPECT_TRUE(listed(keys, search).isEmpty()) << search.toStdString();
    EXPECT_EQ(listed(keys, " "), QStringList({"CPU Tp01"}));
}

TEST(SensorCatalog, KeepsTheTwoLettersIApartInTurkish) {
    const std::vector<std::string> keys{"Ti0P", "TI0P"};
    EXPECT_EQ(listed(keys, "ti", english), QStringList({"Other TI0P", "Other Ti0P"}));
    EXPECT_EQ(listed(keys, "ti", turkish), QStringList({"Other Ti0P"}));
    EXPECT_EQ(listed(keys, "Tİ", turkish), QStringList({"Other Ti0P"}));
    EXPECT_EQ(listed(keys, "tı", turkish), QStringList({"Other TI0P"}));
    EXPECT_EQ(listed(keys, "TI", turkish), QStringList({"Other TI0P"}));
}
