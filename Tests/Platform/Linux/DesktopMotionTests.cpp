#include "Platform/Linux/DesktopMotion.h"
#include "Support/FakePortal.h"
#include "Support/GtkSettings.h"
#include "Support/PrivateBus.h"
#include "Support/TemporaryFolder.h"

#include <QCoreApplication>

#include <gtest/gtest.h>

#include <memory>

using namespace tervale;

namespace {

const QString appearance = "org.freedesktop.appearance";
const QString interface = "org.gnome.desktop.interface";

class DesktopMotionTest : public testing::Test {
  protected:
    void writeGtkSettings(const std::string& line, const std::string& version = "gtk-3.0") {
        tervale::writeGtkSettings(configuration.path, "gtk-theme-name=Any\n" + line, version);
    }
    DesktopMotion motion() {
        return DesktopMotion(std::make_shared<DesktopSettings>(bus.connect(), configuration.path));
    }
    static void change(FakePortal& portal, const QString& group, const QString& key,
                       const QVariant& value) {
        emit portal.SettingChanged(group, key, QDBusVariant(value));
    }

    TemporaryFolder configuration;
    PrivateBus bus;
};

} // namespace

TEST_F(DesktopMotionTest, IsUsualWhereNobodyTells) {
    EXPECT_FALSE(motion().isReduced());
}

TEST_F(DesktopMotionTest, IsWhatGtksSettingsSayWithoutAPortal) {
    writeGtkSettings("gtk-enable-animations=false");
    EXPECT_TRUE(motion().isReduced());
    writeGtkSettings("gtk-enable-animations=0");
    EXPECT_TRUE(motion().isReduced());
    writeGtkSettings("gtk-enable-animations=1");
    EXPECT_FALSE(motion().isReduced());
    writeGtkSettings("gtk-enable-animations=0", "gtk-4.0");
    EXPECT_TRUE(motion().isReduced()) << "the newer version's file goes first";
}

TEST_F(DesktopMotionTest, IsWhatGtksSettingsSayWithoutABus) {
    writeGtkSettings("gtk-enable-animations=0");
    const auto settings =
        std::make_shared<DesktopSettings>(QDBusConnection(QString()), configuration.path);
    EXPECT_TRUE(DesktopMotion(settings).isReduced());
}

TEST_F(DesktopMotionTest, IsReducedWhereTheDesktopAnimatesNothing) {
    FakePortal portal(bus.connect());
    portal.settings[interface + "/enable-animations"] = false;
    const DesktopMotion asked = motion();
    EXPECT_TRUE(eventually([&] { return asked.isReduced(); }));
}

TEST_F(DesktopMotionTest, IsReducedWhereThePortalSaysSo) {
    FakePortal portal(bus.connect());
    portal.settings[appearance + "/reduced-motion"] = 1U;
    portal.settings[interface + "/enable-animations"] = true;
    const DesktopMotion asked = motion();
    EXPECT_TRUE(eventually([&] { return asked.isReduced(); }));
}

TEST_F(DesktopMotionTest, TakesTheDesktopsWordBeforeGtks) {
    writeGtkSettings("gtk-enable-animations=0");
    FakePortal portal(bus.connect());
    portal.settings[interface + "/enable-animations"] = true;
    const DesktopMotion asked = motion();
    EXPECT_TRUE(asked.isReduced()) << "before the desktop has answered";
    EXPECT_TRUE(eventually([&] { return !asked.isReduced(); }));
}

TEST_F(DesktopMotionTest, FollowsEachChange) {
    FakePortal portal(bus.connect());
    portal.settings[interface + "/enable-animations"] = true;
    const DesktopMotion asked = motion();
    ASSERT_TRUE(eventually([&] { return portal.answers == 1; }));
    change(portal, interface, "enable-animations", false);
    EXPECT_TRUE(eventually([&] { return asked.isReduced(); }));
    change(portal, interface, "enable-animations", true);
    EXPECT_TRUE(eventually([&] { return !asked.isReduced(); }));
    change(portal, appearance, "reduced-motion", 1U);
    EXPECT_TRUE(eventually([&] { return asked.isReduced(); }));
    change(portal, appearance, "reduced-motion", 0U);
    EXPECT_TRUE(eventually([&] { return !asked.isReduced(); }));
}

TEST_F(DesktopMotionTest, PassesOverWhatIsNoSetting) {
    FakePortal portal(bus.connect());
    const DesktopMotion asked = motion();
    ASSERT_TRUE(eventually([&] { return portal.answers == 1; }));
    change(portal, interface, "enable-animations", "no");
    change(portal, interface, "cursor-blink", false);
    change(portal, "org.example", "enable-animations", false);
    change(portal, appearance, "reduced-motion", 2U);
    PrivateBus::settle(bus.connect());
    QCoreApplication::processEvents();
    EXPECT_FALSE(asked.isReduced());
}
