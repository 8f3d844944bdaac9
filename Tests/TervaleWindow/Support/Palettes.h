#pragma once

#include "TervaleWindow/Support/Look.h"

#include <QPalette>

#include <string>
#include <vector>

namespace tervale {

/// One that the window is drawn with.
struct NamedPalette {
    std::string name;
    QPalette palette;
    bool highContrast = false;
};

/// As a desktop's high contrast changes a palette: black on white, or white on black.
inline QPalette highContrastOf(QPalette palette, Scheme scheme) {
    const bool dark = scheme == Scheme::dark;
    const QColor ground = dark ? Qt::black : Qt::white;
    const QColor text = dark ? Qt::white : Qt::black;
    for (const QPalette::ColorRole role :
         {QPalette::Window, QPalette::Base, QPalette::Button, QPalette::ToolTipBase})
        palette.setColor(role, ground);
    for (const QPalette::ColorRole role :
         {QPalette::WindowText, QPalette::Text, QPalette::ButtonText, QPalette::ToolTipText})
        palette.setColor(role, text);
    return palette;
}

/// Light and dark, the window's own and a Mac's, and each in high contrast.
inline std::vector<NamedPalette> everyPalette() {
    std::vector<NamedPalette> all;
    for (const Look look : {Look::own, Look::stock}) {
        for (const Scheme scheme : {Scheme::light, Scheme::dark}) {
            const std::string name = std::string(look == Look::own ? "own" : "a Mac's") +
                                     (scheme == Scheme::dark ? ", dark" : ", light");
            const QPalette palette = paletteOf(look, scheme);
            all.push_back({name, palette});
            all.push_back({name + ", high contrast", highContrastOf(palette, scheme), true});
        }
    }
    return all;
}

} // namespace tervale
