#include "Platform/Linux/DesktopAppearance.h"
#include "Platform/Linux/DesktopMotion.h"
#include "Support/FakePortal.h"
#include "Support/GtkSettings.h"
#include "Support/PrivateBus.h"
#include "Support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <memory>
#include <optional>

using namespace tervale;

namespace {

using Scheme = DesktopLook::Scheme;

constexpr const char* schemeKey = "org.freedesktop.appearance/color-scheme";
constexpr const char* contrastKey = "org.freedesktop.appearance/contrast";
constexpr const char* highContrastKey = "org.gnome.desktop.a11y.interface/high-contrast";
constexpr const char* themeKey = "org.gnome.desktop.interface/gtk-theme";

class DesktopAppearanceTest : public testing::Test {
  protected:
    DesktopAppearance& ask() {
        settings = std::make_shared<DesktopSettings>(bus.connect(), configuration.path);
        asked = std::make_unique<DesktopAppearance>(settings, [this] { ++changes; });
        return *asked;
    }
    FakePortal& makePortal() { return portal.emplace(bus.connect()); }
    /// What comes of one setting of a portal that has no other.
    DesktopLook lookOf(const QString& setting, const QVariant& value) {
        if (!portal)
            makePortal();
        portal->settings = {{setting, value}};
        bool answered = false;
        ask();
        QObject::connect(settings.get(), &DesktopSettings::changed, [&] { answered = true; });
        EXPECT_TRUE(eventually([&] { return answered; })) << setting.toStdString();
        const DesktopLook look = asked->look();
        asked.reset();
        settings.reset();
        return look;
    }
    static void change(FakePortal& desktop, const QString& setting, const QVariant& value) {
        emit desktop.SettingChanged(setting.section('/', 0, 0), setting.section('/', 1),
                                    QDBusVariant(value));
    }

    TemporaryFolder configuration;
    PrivateBus bus;
    int changes = 0;
    std::optional<FakePortal> portal;
    std::shared_ptr<DesktopSettings> settings;
    std::unique_ptr<DesktopAppearance> asked;
};

} // namespace

TEST_F(DesktopAppearanceTest, IsNobodysWhereNobodyTells) {
    EXPECT_EQ(ask().look(), DesktopLook());
}

TEST_F(DesktopAppearanceTest, TakesThePreferredScheme) {
    EXPECT_EQ(lookOf(schemeKey, 1U).scheme, Scheme::dark);
    EXPECT_EQ(lookOf(schemeKey, 2U).scheme, Scheme::light);
    EXPECT_EQ(lookOf(schemeKey, 0U).scheme, std::nullopt);
    EXPECT_EQ(lookOf(schemeKey, 7U).scheme, std::nullopt);
    EXPECT_EQ(lookOf(schemeKey, "dark").scheme, std::nullopt);
}

TEST_F(DesktopAppearanceTest, TakesTheThemesNameWithoutAPreferredScheme) {
    EXPECT_EQ(lookOf(themeKey, "Adwaita-dark").scheme, Scheme::dark);
    EXPECT_EQ(lookOf(themeKey, "Yaru-Dark").scheme, Scheme::dark);
    EXPECT_EQ(lookOf(themeKey, "Adwaita").scheme, Scheme::light);
    EXPECT_EQ(lookOf(themeKey, "HighContrastInverse").scheme, Scheme::dark);
    EXPECT_EQ(lookOf(themeKey, "HighContrast").scheme, Scheme::light);
    EXPECT_EQ(lookOf(themeKey, "").scheme, std::nullopt);
}

TEST_F(DesktopAppearanceTest, HasHighContrastWhoeverAsksForIt) {
    EXPECT_TRUE(lookOf(contrastKey, 1U).highContrast);
    EXPECT_TRUE(lookOf(highContrastKey, true).highContrast);
    EXPECT_TRUE(lookOf(themeKey, "HighContrast").highContrast);
    EXPECT_TRUE(lookOf(themeKey, "HighContrastInverse").highContrast);
    EXPECT_FALSE(lookOf(contrastKey, 0U).highContrast);
    EXPECT_FALSE(lookOf(highContrastKey, false).highContrast);
    EXPECT_FALSE(lookOf(themeKey, "Adwaita").highContrast);
}

TEST_F(DesktopAppearanceTest, IsWhatGtksSettingsSayWithoutAPortal) {
    writeGtkSettings(configuration.path, "gtk-theme-name=Adwaita-dark");
    EXPECT_EQ(ask().look().scheme, Scheme::dark);
    writeGtkSettings(configuration.path, "gtk-theme-name=Adwaita");
    EXPECT_EQ(ask().look().scheme, Scheme::light);
    writeGtkSettings(configuration.path,
                     "gtk-theme-name=Adwaita\ngtk-application-prefer-dark-theme=1");
    EXPECT_EQ(ask().look().scheme, Scheme::dark);
    writeGtkSettings(configuration.path, "gtk-application-prefer-dark-theme=false");
    EXPECT_EQ(ask().look().scheme, Scheme::light);
    writeGtkSettings(configuration.path, "gtk-theme-name=HighContrastInverse");
    EXPECT_EQ(ask().look(), (DesktopLook{Scheme::dark, true}));
}

TEST_F(DesktopAppearanceTest, TakesTheDesktopsWordBeforeGtks) {
    writeGtkSettings(configuration.path, "gtk-theme-name=HighContrastInverse");
    FakePortal& desktop = makePortal();
    desktop.settings[schemeKey] = 2U;
    desktop.settings[themeKey] = "Adwaita-dark";
    ask();
    EXPECT_EQ(asked->look(), (DesktopLook{Scheme::dark, true}))
        << "before the desktop has answered";
    ASSERT_TRUE(eventually([&] { return changes == 1; }));
    EXPECT_EQ(asked->look(), (DesktopLook{Scheme::light, false}));
}

TEST_F(DesktopAppearanceTest, TakesTheDesktopsThemeBeforeGtksPreference) {
    writeGtkSettings(configuration.path, "gtk-application-prefer-dark-theme=1");
    EXPECT_EQ(lookOf(themeKey, "Adwaita").scheme, Scheme::light);
    EXPECT_EQ(lookOf(themeKey, "").scheme, Scheme::dark);
}

TEST_F(DesktopAppearanceTest, TellsOfEachChangeOnceAndOfNothingElse) {
    FakePortal& desktop = makePortal();
    desktop.settings[schemeKey] = 0U;
    desktop.settings[themeKey] = "Adwaita";
    ask();
    ASSERT_TRUE(eventually([&] { return changes == 1; }));
    change(desktop, schemeKey, 1U);
    ASSERT_TRUE(eventually([&] { return changes == 2; }));
    EXPECT_EQ(asked->look().scheme, Scheme::dark);
    change(desktop, "org.gnome.desktop.interface/cursor-blink", false);
    change(desktop, schemeKey, 1U);
    change(desktop, contrastKey, 1U);
    ASSERT_TRUE(eventually([&] { return asked->look().highContrast; }));
    EXPECT_EQ(changes, 3);
    change(desktop, schemeKey, 0U);
    ASSERT_TRUE(eventually([&] { return asked->look().scheme == Scheme::light; }));
    EXPECT_EQ(changes, 4);
}

TEST_F(DesktopAppearanceTest, AsksTheDesktopTogetherWithWhoAsksForMotion) {
    FakePortal& desktop = makePortal();
    desktop.settings[schemeKey] = 1U;
    desktop.settings["org.gnome.desktop.interface/enable-animations"] = false;
    ask();
    const DesktopMotion motion(settings);
    ASSERT_TRUE(eventually([&] { return changes == 1; }));
    EXPECT_TRUE(motion.isReduced());
    EXPECT_EQ(asked->look().scheme, Scheme::dark);
    EXPECT_EQ(desktop.answers, 1);
}
