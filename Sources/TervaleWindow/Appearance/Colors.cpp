#include "TervaleWindow/Appearance/Colors.h"

#include "Base/ThemeColors.h"
#include "TervaleWindow/Appearance/Theme.h"

#include <QEvent>
#include <QGuiApplication>
#include <QObject>
#include <QPointer>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <optional>
#include <utility>

namespace tervale {

namespace {

/// How strongly the label's colour shows in each role, and the colours that are not taken from it.
struct Shades {
    float secondary;
    float quaternary;
    float line;
    float controlLine;
    float plot;
    QRgb warning;
    QRgb accentLabel;
};

constexpr QRgb opaque(std::uint32_t color) {
    return 0xff000000U | color;
}

constexpr Shades shadesOn(const themeColors::Ground& ground, float controlLine, float plot) {
    return {ground.secondary,       ground.quaternary,         ground.line, controlLine, plot,
            opaque(ground.warning), opaque(ground.accentLabel)};
}

constexpr Shades lightShades = shadesOn(themeColors::light, 0.158f, 0.028f);
constexpr Shades darkShades = shadesOn(themeColors::dark, 0.126f, 0.032f);
constexpr Shades contrastLightShades{0.8f, 0.2f, 0.6f, 0.7f, 0.05f, 0xff8a3d00, 0xff0b4fc0};
constexpr Shades contrastDarkShades{0.8f, 0.3f, 0.6f, 0.7f, 0.06f, 0xffffbf80, 0xff8cb9ff};

constexpr QRgb black = 0xff000000;
constexpr QRgb white = 0xffffffff;

double linear(float shade) {
    const auto component = static_cast<double>(shade);
    return component <= 0.04045 ? component / 12.92 : std::pow((component + 0.055) / 1.055, 2.4);
}

double luminance(const QColor& color) {
    return 0.2126 * linear(color.redF()) + 0.7152 * linear(color.greenF()) +
           0.0722 * linear(color.blueF());
}

double contrast(double first, double second) {
    const auto [low, high] = std::minmax(first, second);
    return (high + 0.05) / (low + 0.05);
}

/// What the system last said.
std::optional<bool>& systemContrast() {
    static std::optional<bool> wanted;
    return wanted;
}

/// Asks the system again when its looks may have changed, before any widget hears of it: to ask
/// while painting would take too long.
class ContrastWatch final : public QObject {
  public:
    explicit ContrastWatch(std::function<std::optional<bool>()> query) : query(std::move(query)) {
        ask();
        qApp->installEventFilter(this);
    }

    bool eventFilter(QObject* watched, QEvent* event) override {
        const QEvent::Type type = event->type();
        // Many hear of a new palette; whoever is the first may draw at once.
        const bool newPalette =
            (type == QEvent::PaletteChange || type == QEvent::ApplicationPaletteChange) &&
            QGuiApplication::palette().cacheKey() != palette;
        if (newPalette || type == QEvent::ThemeChange)
            ask();
        return QObject::eventFilter(watched, event);
    }

  private:
    void ask() {
        systemContrast() = query();
        palette = QGuiApplication::palette().cacheKey();
    }

    std::function<std::optional<bool>()> query;
    /// The application's, when the system was last asked.
    qint64 palette = 0;
};

bool isHighContrast(double labelLuminance, double groundLuminance) {
    if (const std::optional<bool> wanted = systemContrast())
        return *wanted;
    // Black text on a pale grey is usual; only black and white themselves come near 21 : 1.
    return contrast(labelLuminance, groundLuminance) > 19;
}

const Shades& shades(bool dark, bool highContrast) {
    if (dark)
        return highContrast ? contrastDarkShades : darkShades;
    return highContrast ? contrastLightShades : lightShades;
}

QColor faded(QColor color, float alpha) {
    color.setAlphaF(alpha);
    return color;
}

QColor blended(const QColor& ground, const QColor& over, float share) {
    const auto mix = [share](float from, float to) { return from + share * (to - from); };
    return QColor::fromRgbF(mix(ground.redF(), over.redF()), mix(ground.greenF(), over.greenF()),
                            mix(ground.blueF(), over.blueF()));
}

struct Basics {
    QRgb window;
    QRgb card;
    QRgb label;
    QRgb control;
    QRgb toolTip;
    QRgb link;
};

void setEverywhere(QPalette& palette, const QColor& color,
                   std::initializer_list<QPalette::ColorRole> roles) {
    for (const QPalette::ColorRole role : roles)
        palette.setColor(QPalette::All, role, color);
}

void setDisabled(QPalette& palette, const QColor& window, const QColor& label) {
    const QColor pale = blended(window, label, 0.4f);
    for (const QPalette::ColorRole role :
         {QPalette::WindowText, QPalette::Text, QPalette::ButtonText, QPalette::HighlightedText,
          QPalette::PlaceholderText})
        palette.setColor(QPalette::Disabled, role, pale);
    palette.setColor(QPalette::Disabled, QPalette::Highlight, blended(window, label, 0.15f));
}

QPalette paletteOf(const Basics& basics) {
    const QColor window(basics.window);
    const QColor label(basics.label);
    QPalette palette;
    setEverywhere(palette, window, {QPalette::Window});
    setEverywhere(palette, QColor(basics.card), {QPalette::Base});
    setEverywhere(palette, blended(QColor(basics.card), label, 0.03f), {QPalette::AlternateBase});
    setEverywhere(palette, QColor(basics.control), {QPalette::Button});
    setEverywhere(
        palette, label,
        {QPalette::WindowText, QPalette::Text, QPalette::ButtonText, QPalette::ToolTipText});
    setEverywhere(palette, faded(label, 0.5f), {QPalette::PlaceholderText});
    setEverywhere(palette, Qt::white, {QPalette::HighlightedText, QPalette::BrightText});
    setEverywhere(palette, Theme::accent(), {QPalette::Highlight});
    setEverywhere(palette, QColor(basics.link), {QPalette::Link, QPalette::LinkVisited});
    setEverywhere(palette, QColor(basics.toolTip), {QPalette::ToolTipBase});
    // The bevels of the widget styles.
    setEverywhere(palette, blended(QColor(basics.control), Qt::white, 0.15f), {QPalette::Light});
    setEverywhere(palette, blended(window, Qt::white, 0.1f), {QPalette::Midlight});
    setEverywhere(palette, blended(window, label, 0.2f), {QPalette::Mid});
    setEverywhere(palette, blended(window, label, 0.35f), {QPalette::Dark});
    setEverywhere(palette, Qt::black, {QPalette::Shadow});
#if QT_VERSION >= QT_VERSION_CHECK(6, 6, 0)
    setEverywhere(palette, Theme::accent(), {QPalette::Accent});
#endif
    setDisabled(palette, window, label);
    return palette;
}

} // namespace

void askForHighContrast(std::function<std::optional<bool>()> query) {
    static QPointer<ContrastWatch> watch;
    delete watch;
    systemContrast().reset();
    if (!query)
        return;
    watch = new ContrastWatch(std::move(query));
    watch->setParent(qApp);
}

Colors Colors::of(const QPalette& palette) {
    Colors colors;
    colors.window = palette.color(QPalette::Active, QPalette::Window);
    colors.card = palette.color(QPalette::Active, QPalette::Base);
    colors.label = palette.color(QPalette::Active, QPalette::WindowText);
    colors.control = palette.color(QPalette::Active, QPalette::Button);
    const double label = luminance(colors.label);
    const double ground = luminance(colors.window);
    colors.dark = label > ground;
    colors.highContrast = isHighContrast(label, ground);
    const Shades& shade = shades(colors.dark, colors.highContrast);
    // Some desktops' dark ground of lists and fields is darker than their window; a card on it
    // would look like a hole.
    if (colors.dark && luminance(colors.card) < ground)
        colors.card = blended(colors.window, colors.label, 0.06f);
    colors.sidebar = blended(colors.window, colors.label, 0.049f);
    colors.line = faded(colors.label, shade.line);
    colors.secondary = faded(colors.label, shade.secondary);
    colors.quaternary = faded(colors.label, shade.quaternary);
    colors.controlLine = faded(colors.label, shade.controlLine);
    colors.plot = faded(colors.label, shade.plot);
    colors.warning = QColor(shade.warning);
    colors.accentLabel = QColor(shade.accentLabel);
    return colors;
}

QColor Colors::figure(double celsius) const {
    return highContrast ? label : Theme::thermal(celsius);
}

QPalette lightPalette() {
    return paletteOf({.window = opaque(themeColors::light.window),
                      .card = opaque(themeColors::light.card),
                      .label = opaque(themeColors::light.label),
                      .control = 0xffffffff,
                      .toolTip = 0xffffffff,
                      .link = opaque(themeColors::light.accentLabel)});
}

QPalette darkPalette() {
    return paletteOf({.window = opaque(themeColors::dark.window),
                      .card = opaque(themeColors::dark.card),
                      .label = opaque(themeColors::dark.label),
                      .control = 0xff3a3a3e,
                      .toolTip = 0xff3a3a3e,
                      .link = opaque(themeColors::dark.accentLabel)});
}

QPalette highContrastLightPalette() {
    return paletteOf({.window = white,
                      .card = white,
                      .label = black,
                      .control = white,
                      .toolTip = white,
                      .link = contrastLightShades.accentLabel});
}

QPalette highContrastDarkPalette() {
    return paletteOf({.window = black,
                      .card = black,
                      .label = white,
                      .control = black,
                      .toolTip = black,
                      .link = contrastDarkShades.accentLabel});
}

} // namespace tervale
