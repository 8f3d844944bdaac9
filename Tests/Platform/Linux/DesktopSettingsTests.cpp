#include "Platform/Linux/DesktopSettings.h"
#include "Support/FakePortal.h"
#include "Support/GtkSettings.h"
#include "Support/PrivateBus.h"
#include "Support/TemporaryFolder.h"

#include <QCoreApplication>

#include <gtest/gtest.h>

#include <memory>

using namespace tervale;

namespace {

class DesktopSettingsTest : public testing::Test {
  protected:
    std::unique_ptr<DesktopSettings> ask() {
        auto settings = std::make_unique<DesktopSettings>(bus.connect(), configuration.path);
        QObject::connect(settings.get(), &DesktopSettings::changed, [this] { ++changes; });
        return settings;
    }

    TemporaryFolder configuration;
    PrivateBus bus;
    int changes = 0;
};

} // namespace

TEST_F(DesktopSettingsTest, HoldNothingWhereNobodyAnswers) {
    const auto settings = ask();
    PrivateBus::settle(bus.connect());
    QCoreApplication::processEvents();
    EXPECT_FALSE(settings->value(desktopGroup::appearance, "color-scheme").isValid());
    EXPECT_FALSE(settings->gtkValue("gtk-theme-name").isValid());
    EXPECT_EQ(changes, 0);
}

TEST_F(DesktopSettingsTest, AskOnceForAllGroupsAndTellOnce) {
    FakePortal portal(bus.connect());
    portal.settings["org.freedesktop.appearance/color-scheme"] = 1U;
    portal.settings["org.gnome.desktop.interface/gtk-theme"] = "Adwaita";
    portal.settings["org.gnome.desktop.a11y.interface/high-contrast"] = true;
    portal.settings["org.example/color-scheme"] = 2U;
    const auto settings = ask();
    ASSERT_TRUE(eventually([&] { return changes > 0; }));
    EXPECT_EQ(settings->value(desktopGroup::appearance, "color-scheme"), QVariant(1U));
    EXPECT_EQ(settings->value(desktopGroup::interface, "gtk-theme"), QVariant("Adwaita"));
    EXPECT_EQ(settings->value(desktopGroup::accessibility, "high-contrast"), QVariant(true));
    EXPECT_FALSE(settings->value("org.example", "color-scheme").isValid());
    EXPECT_EQ(changes, 1);
    EXPECT_EQ(portal.answers, 1);
}

TEST_F(DesktopSettingsTest, FollowEachChangeOfTheGroups) {
    FakePortal portal(bus.connect());
    portal.settings["org.freedesktop.appearance/color-scheme"] = 1U;
    const auto settings = ask();
    ASSERT_TRUE(eventually([&] { return changes == 1; }));
    emit portal.SettingChanged("org.example", "color-scheme", QDBusVariant(0U));
    emit portal.SettingChanged("org.freedesktop.appearance", "color-scheme", QDBusVariant(2U));
    ASSERT_TRUE(eventually([&] { return changes == 2; }));
    EXPECT_EQ(settings->value(desktopGroup::appearance, "color-scheme"), QVariant(2U));
    EXPECT_FALSE(settings->value("org.example", "color-scheme").isValid());
}

TEST_F(DesktopSettingsTest, TakeGtksFromItsNewestVersionThatHasThem) {
    writeGtkSettings(configuration.path, "gtk-theme-name=Old\ngtk-font-name=Sans 10");
    writeGtkSettings(configuration.path, "gtk-theme-name=New", "gtk-4.0");
    const auto settings = ask();
    EXPECT_EQ(settings->gtkValue("gtk-theme-name"), QVariant("New"));
    EXPECT_EQ(settings->gtkValue("gtk-font-name"), QVariant("Sans 10"));
}
