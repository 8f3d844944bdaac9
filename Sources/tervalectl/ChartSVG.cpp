#include "tervalectl/ChartSVG.h"

#include "Base/Terminal.h"
#include "Base/ThemeColors.h"
#include "Profiles/SafetyLatch.h"
#include "tervalectl/ChartLayout.h"

#include <cmath>
#include <concepts>
#include <cstdio>
#include <string_view>

namespace tervale {

namespace {

std::string escaped(std::string_view text) {
    std::string safe;
    for (const char byte : printable(text)) {
        switch (byte) {
        case '&':
            safe += "&amp;";
            break;
        case '<':
            safe += "&lt;";
            break;
        case '>':
            safe += "&gt;";
            break;
        case '"':
            safe += "&quot;";
            break;
        default:
            safe += byte;
        }
    }
    return safe;
}

/// To a tenth of a pixel, the same in every locale.
std::string number(double value) {
    const long tenths = std::lround(value * 10);
    std::string text = (tenths < 0 ? "-" : "") + std::to_string(std::abs(tenths) / 10);
    if (tenths % 10 != 0)
        text += '.' + std::to_string(std::abs(tenths) % 10);
    return text;
}

std::string hex(std::uint32_t color) {
    char text[16];
    std::snprintf(text, sizeof text, "#%06x", color);
    return text;
}

/// An attribute, with a space before it.
std::string attribute(std::string_view name, const std::string& value) {
    return ' ' + std::string(name) + "=\"" + value + '"';
}

std::string opacity(std::string_view name, std::floating_point auto value) {
    return attribute(
        name,
        "0." + std::to_string(std::lround(static_cast<double>(value) * 1000) + 1000).substr(1));
}

std::string fill(std::string_view role, std::uint32_t color) {
    return attribute("class", "f-" + std::string(role)) + attribute("fill", hex(color));
}

std::string stroke(std::string_view role, std::uint32_t color, double width) {
    return attribute("class", "s-" + std::string(role)) + attribute("stroke", hex(color)) +
           attribute("stroke-width", number(width)) + " fill=\"none\"";
}

/// The rules for the reader's dark ground; on a light one the attributes hold.
std::string darkStyle() {
    const auto rules = [](std::string_view role, std::uint32_t color) {
        return ".f-" + std::string(role) + "{fill:" + hex(color) + "}.s-" + std::string(role) +
               "{stroke:" + hex(color) + "}";
    };
    using themeColors::dark;
    return "<style>@media (prefers-color-scheme: dark){" + rules("window", dark.window) +
           rules("card", dark.card) + rules("label", dark.label) +
           rules("accent", dark.accentLabel) + rules("warning", dark.warning) + "}</style>\n";
}

class SVGWriter {
  public:
    explicit SVGWriter(const Chart& drawn)
        : chart(drawn),
          layout(chartLayout(chartWidth, chartHeight, drawn.celsius())) {}

    std::string document() {
        open();
        heading();
        plotOf(layout.heat);
        plotOf(layout.speed);
        bands();
        axes();
        speeds();
        temperatures();
        return text + "</svg>\n";
    }

  private:
    void open() {
        text = "<svg xmlns=\"http://www.w3.org/2000/svg\"" +
               attribute("width", std::to_string(chartWidth)) +
               attribute("height", std::to_string(chartHeight)) +
               attribute("viewBox",
                         "0 0 " + std::to_string(chartWidth) + ' ' + std::to_string(chartHeight)) +
               attribute("font-family",
                         "Inter, -apple-system, 'Segoe UI', Helvetica, Arial, sans-serif") +
               attribute("font-size", "12") + " role=\"img\">\n<title>" + escaped(chart.title()) +
               "</title>\n" + darkStyle();
        ramp();
        text += "<rect" + attribute("width", std::to_string(chartWidth)) +
                attribute("height", std::to_string(chartHeight)) + fill("window", light.window) +
                "/>\n";
    }
    // Each height has the colour of its temperature.
    void ramp() {
        text += "<defs><linearGradient id=\"heat\" gradientUnits=\"userSpaceOnUse\"" +
                attribute("x1", "0") + attribute("x2", "0") +
                attribute("y1", number(layout.heat.bottom())) +
                attribute("y2", number(layout.heat.top)) + ">";
        constexpr int stops = 16;
        for (int i = 0; i <= stops; ++i) {
            const double offset = static_cast<double>(i) / stops;
            const double celsius = layout.celsius.lower + offset * layout.celsius.span();
            text += "<stop" + attribute("offset", std::to_string(100 * i / stops) + '%') +
                    attribute("stop-color", themeColors::thermal(celsius).hex()) + "/>";
        }
        text += "</linearGradient></defs>\n";
    }
    void heading() {
        write(layout.heat.left, 34, chart.title(),
              attribute("font-size", "18") + attribute("font-weight", "600") +
                  fill("label", light.label));
        double x = layout.heat.left;
        const auto key = [&](const std::string& title, const std::string& look) {
            text += "<path" + attribute("d", "M" + number(x) + " 56h18") + look + "/>";
            write(x + 24, 60, title,
                  fill("label", light.label) + opacity("fill-opacity", light.secondary));
            // About as wide as such letters are.
            x += 48 + 6.6 * static_cast<double>(title.size());
        };
        std::size_t index = 0;
        for (const ChartSeries& series : chart.temperatures())
            key(series.title, heatLook(index++, themeColors::thermal(70).hex()));
        if (chart.has(&ChartSample::target))
            key("Target", stroke("accent", light.accentLabel, 2));
        if (chart.has(&ChartSample::speed))
            key("Fans", speedLook());
        if (chart.has(&ChartSample::load))
            key("Load", loadLook());
        if (!safetyBands(chart, layout, 2).empty())
            key("Safety", stroke("warning", light.warning, 8) + opacity("stroke-opacity", 0.3));
    }
    void plotOf(const ChartRect& plot) {
        text += "<rect" + attribute("x", number(plot.left)) + attribute("y", number(plot.top)) +
                attribute("width", number(plot.width)) + attribute("height", number(plot.height)) +
                attribute("rx", "6") + fill("card", light.card) + "/>\n";
    }
    void bands() {
        for (const ClosedRange& band : safetyBands(chart, layout, 2)) {
            for (const ChartRect& plot : {layout.heat, layout.speed})
                text += "<rect" + attribute("x", number(band.lower)) +
                        attribute("y", number(plot.top)) + attribute("width", number(band.span())) +
                        attribute("height", number(plot.height)) + fill("warning", light.warning) +
                        opacity("fill-opacity", 0.18) + "/>\n";
        }
    }
    void axes() {
        for (int celsius = static_cast<int>(std::lround(layout.celsius.lower));
             celsius <= layout.celsius.upper; celsius += 20)
            grid(layout.yOfCelsius(celsius), std::to_string(celsius) + " °C");
        for (const int percent : {0, 50, 100})
            grid(layout.yOfFraction(percent / 100.0), std::to_string(percent) + "%");
        text += "<path" +
                attribute("d", "M" + number(layout.heat.left) + ' ' +
                                   number(layout.yOfCelsius(SafetyLatch::on)) + 'h' +
                                   number(layout.heat.width)) +
                stroke("warning", light.warning, 1) + " stroke-dasharray=\"5 4\"/>\n";
        constexpr std::size_t times = 5;
        for (const ChartTime& time : chartTimes(chart, layout, times))
            write(time.x, layout.speed.bottom() + 22, time.text,
                  lesser(time.x > layout.heat.right() - 1 ? "end" : "middle"));
    }
    void grid(double y, const std::string& label) {
        text += "<path" +
                attribute("d", "M" + number(layout.heat.left) + ' ' + number(y) + 'h' +
                                   number(layout.heat.width)) +
                stroke("label", light.label, 1) + opacity("stroke-opacity", light.line) + "/>\n";
        write(layout.heat.left - 9, y + 4, label, lesser("end"));
    }
    void speeds() {
        for (const ChartStretch& stretch : speedLine(chart, layout, &ChartSample::target)) {
            const std::string steps = stepsThrough(stretch);
            text += "<path" +
                    attribute("d", steps + 'V' + number(layout.speed.bottom()) + 'H' +
                                       number(stretch.front().x) + 'Z') +
                    fill("accent", light.accentLabel) + opacity("fill-opacity", 0.15) + "/>\n";
            text += "<path" + attribute("d", steps) + stroke("accent", light.accentLabel, 2) +
                    " stroke-linejoin=\"round\"/>\n";
        }
        lines(speedLine(chart, layout, &ChartSample::load), loadLook());
        lines(speedLine(chart, layout, &ChartSample::speed), speedLook());
        if (!chart.has(&ChartSample::target))
            write(layout.speed.left + layout.speed.width / 2,
                  layout.speed.top + layout.speed.height / 2 + 4, "Automatic", lesser("middle"));
    }
    void temperatures() {
        // The one that drives the fans lies on top.
        const std::vector<ChartSeries> all = chart.temperatures();
        for (std::size_t i = all.size(); i-- > 0;)
            lines(heatLine(chart, layout, all[i].value), heatLook(i, "url(#heat)"));
    }

    static std::string heatLook(std::size_t index, const std::string& paint) {
        constexpr double faint = 0.55;
        return attribute("stroke", paint) + " fill=\"none\"" +
               attribute("stroke-width", index == 0 ? "2.4" : "1.6") +
               (index == 0 ? "" : opacity("stroke-opacity", faint)) +
               (index == 2 ? " stroke-dasharray=\"6 3\"" : "");
    }
    static std::string speedLook() {
        return stroke("label", light.label, 1.6) + opacity("stroke-opacity", light.secondary);
    }
    static std::string loadLook() {
        return stroke("label", light.label, 1.2) + opacity("stroke-opacity", 0.35) +
               " stroke-dasharray=\"2 3\"";
    }
    static std::string lesser(const char* anchor) {
        return attribute("text-anchor", anchor) + fill("label", light.label) +
               opacity("fill-opacity", light.secondary);
    }

    void lines(const std::vector<ChartStretch>& stretches, const std::string& look) {
        for (const ChartStretch& stretch : stretches) {
            std::string path;
            for (const ChartPoint& point : stretch)
                path += (path.empty() ? 'M' : 'L') + number(point.x) + ' ' + number(point.y);
            // One sample alone is a dot.
            if (stretch.size() == 1)
                path += "h0";
            text += "<path" + attribute("d", path) + look +
                    " stroke-linejoin=\"round\" stroke-linecap=\"round\"/>\n";
        }
    }
    /// A target holds until the next.
    static std::string stepsThrough(const ChartStretch& stretch) {
        std::string path;
        for (const ChartPoint& point : stretch) {
            if (path.empty())
                path = 'M' + number(point.x) + ' ' + number(point.y);
            else
                path += 'H' + number(point.x) + 'V' + number(point.y);
        }
        return path;
    }
    void write(double x, double y, const std::string& words, const std::string& look) {
        text += "<text" + attribute("x", number(x)) + attribute("y", number(y)) + look + '>' +
                escaped(words) + "</text>\n";
    }

    static constexpr const themeColors::Ground& light = themeColors::light;
    const Chart& chart;
    ChartLayout layout;
    std::string text;
};

} // namespace

std::string chartSVG(const Chart& chart) {
    return SVGWriter(chart).document();
}

} // namespace tervale
