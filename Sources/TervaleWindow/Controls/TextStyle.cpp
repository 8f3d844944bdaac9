#include "TervaleWindow/Controls/TextStyle.h"

#include "Base/Overloaded.h"
#include "Base/Precondition.h"
#include "TervaleWindow/Appearance/Fonts.h"

namespace tervale {

namespace {

constexpr int usualLine = 18;
constexpr int captionLine = 14;

QColor colorOf(TextColor role, const Colors& colors) {
    switch (role) {
    case TextColor::label:
        return colors.label;
    case TextColor::secondary:
        return colors.secondary;
    case TextColor::warning:
        return colors.warning;
    case TextColor::accent:
        return colors.accentLabel;
    }
    precondition(false, "a text has a colour");
    return {};
}

} // namespace

TextStyle TextStyle::title() {
    return {systemFont(fontSize::title, QFont::Bold), usualLine};
}

TextStyle TextStyle::heading() {
    return {systemFont(fontSize::body, QFont::Bold), usualLine};
}

TextStyle TextStyle::section() {
    return {systemFont(fontSize::body, QFont::DemiBold), usualLine};
}

TextStyle TextStyle::emphasis() {
    return {systemFont(fontSize::body, QFont::Medium), usualLine};
}

TextStyle TextStyle::body() {
    return {systemFont(fontSize::body), usualLine};
}

TextStyle TextStyle::callout() {
    return {systemFont(fontSize::callout), usualLine};
}

TextStyle TextStyle::caption() {
    return {systemFont(fontSize::caption), captionLine};
}

QColor color(const Foreground& wanted, const Colors& colors) {
    return std::visit(
        overloaded{[&](TextColor role) { return colorOf(role, colors); },
                   [&](const ThermalColor& figure) { return colors.figure(figure.celsius); },
                   [](const QColor& own) { return own; }},
        wanted);
}

} // namespace tervale
