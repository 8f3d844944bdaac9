#include "TervaleWindow/Shell/SystemAppearance.h"

#include "TervaleWindow/Appearance/Colors.h"
#include "TervaleWindow/Appearance/Fonts.h"
#include "TervaleWindow/Appearance/Motion.h"
#include "TervaleWindow/Appearance/Symbol.h"
#include "TervaleWindow/Appearance/Theme.h"
#include "TervaleWindow/Style/WindowStyle.h"

#include <QApplication>
#include <QEvent>
#include <QOperatingSystemVersion>
#include <QPointer>
#include <QStyle>
#include <QStyleHints>
#include <QWidget>

#include <optional>

namespace tervale {

namespace {

/// Where no desktop brings a palette, the toolkit's own style does.
bool desktopHasPalette() {
    return QApplication::palette() != QApplication::style()->standardPalette();
}

/// Whether the toolkit takes the desktop for a dark one, where it can tell.
bool toolkitIsDark() {
#if QT_VERSION >= QT_VERSION_CHECK(6, 5, 0)
    return QApplication::styleHints()->colorScheme() == Qt::ColorScheme::Dark;
#else
    return false;
#endif
}

/// The window's own palette for a desktop of this look.
QPalette paletteFor(const DesktopLook& look) {
    const bool dark = look.scheme ? look.scheme == DesktopLook::Scheme::dark : toolkitIsDark();
    if (look.highContrast)
        return dark ? highContrastDarkPalette() : highContrastLightPalette();
    return dark ? darkPalette() : lightPalette();
}

/// Only what is selected is tinted; every other colour stays the desktop's, and follows it.
void tintDesktopPalette() {
    QPalette tint;
    tint.setColor(QPalette::Highlight, Theme::accent());
    tint.setColor(QPalette::HighlightedText, Qt::white);
    QApplication::setPalette(tint);
}

/// Has whatever draws by the palette look at it again, though it stayed as it was.
void drawAnew() {
    QEvent theme(QEvent::ThemeChange);
    QCoreApplication::sendEvent(qApp, &theme);
    for (QWidget* widget : QApplication::allWidgets()) {
        QEvent palette(QEvent::PaletteChange);
        QCoreApplication::sendEvent(widget, &palette);
        widget->update();
    }
}

enum class PaletteOwner { desktop, window };

/// Has the window look as the desktop asks it to, now and after each change.
class LookFollower final : public QObject {
  public:
    LookFollower(const DesktopLookSource& source, PaletteOwner owner)
        : owner(owner),
          ask(source ? source([this] { follow(); }) : nullptr) {
        if (owner == PaletteOwner::desktop) {
            tintDesktopPalette();
            askForHighContrast([this] { return contrastBesidePalette(); });
        } else {
            QApplication::setPalette(paletteFor(look()));
        }
#if QT_VERSION >= QT_VERSION_CHECK(6, 5, 0)
        connect(QApplication::styleHints(), &QStyleHints::colorSchemeChanged, this,
                &LookFollower::follow);
#endif
    }
    ~LookFollower() override {
        if (owner == PaletteOwner::desktop)
            askForHighContrast(nullptr);
    }

  private:
    DesktopLook look() const {
        return ask ? ask() : DesktopLook();
    }
    /// A palette of the desktop's may tell it too.
    std::optional<bool> contrastBesidePalette() const {
        return look().highContrast ? std::optional(true) : std::nullopt;
    }
    void follow() {
        if (owner == PaletteOwner::window)
            QApplication::setPalette(paletteFor(look()));
        else
            drawAnew();
    }

    PaletteOwner owner;
    std::function<DesktopLook()> ask;
};

QPointer<LookFollower>& lookFollower() {
    static QPointer<LookFollower> follower;
    return follower;
}

void followLook(const DesktopLookSource& source, PaletteOwner owner) {
    // What it asks may not outlive the toolkit.
    static const bool ends = [] {
        qAddPostRoutine([] { delete lookFollower(); });
        return true;
    }();
    static_cast<void>(ends);
    delete lookFollower();
    lookFollower() = new LookFollower(source, owner);
}

/// The symbols of the system where it has some.
void useSystemSymbols() {
    const auto symbols = makeSystemSymbols();
    if (!symbols)
        return;
    useSymbolShapes([symbols](const QString& name, int side, qreal weight) {
        const auto mask = symbols(name.toStdString(), side, weight);
        return mask ? std::optional(imageOf(*mask)) : std::nullopt;
    });
}

} // namespace

QImage imageOf(const SymbolMask& mask) {
    return QImage(mask.coverage.data(), mask.side, mask.side, mask.side, QImage::Format_Alpha8)
        .copy();
}

ControlDrawing controlDrawing() {
    return QOperatingSystemVersion::currentType() == QOperatingSystemVersion::MacOS
               ? ControlDrawing::system
               : ControlDrawing::window;
}

void useSystemAppearance(QApplication&, ControlDrawing drawing, const DesktopLookSource& desktop) {
    useSystemSymbols();
    askForHighContrast(makeIncreasedContrast());
    askForReducedMotion(makeReducedMotion());
    if (drawing == ControlDrawing::system)
        return;
    keepDesignedWeight();
    const bool themed = desktopHasPalette();
    // Brings the fonts along, each kind of control its own.
    QApplication::setStyle(new WindowStyle);
    followLook(desktop, themed ? PaletteOwner::desktop : PaletteOwner::window);
}

} // namespace tervale
