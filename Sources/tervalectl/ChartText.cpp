#include "tervalectl/ChartText.h"

#include "Base/Terminal.h"
#include "Base/ThemeColors.h"
#include "Profiles/SafetyLatch.h"
#include "tervalectl/ChartLayout.h"
#include "tervalectl/TextCanvas.h"

#include <algorithm>
#include <cmath>

namespace tervale {

namespace {

constexpr int heatRows = 11;
constexpr int speedRows = 6;

SRGB colorOf(std::uint32_t number) {
    const auto component = [number](unsigned shift) { return (number >> shift & 0xFFU) / 255.0; };
    return {component(16), component(8), component(0)};
}

class TextWriter {
  public:
    TextWriter(const Chart& drawn, const TextStyle& used)
        : chart(drawn),
          style(used),
          heat(plotColumns(), heatRows, used),
          speed(plotColumns(), speedRows, used),
          // In dots; the last one lies within the canvas.
          layout{.heat = {0, 0, heat.dotsAcross() - 1.0, heat.dotsDown() - 1.0},
                 .speed = {0, 0, speed.dotsAcross() - 1.0, speed.dotsDown() - 1.0},
                 .celsius = drawn.celsius()} {}

    std::string text() {
        drawHeat();
        drawSpeed();
        std::string all = printable(chart.title()) + '\n' + legend() + '\n';
        append(all, heat, [this](int row) { return celsiusLabel(row); });
        append(all, speed, [](int row) { return percentLabel(row); });
        return all + safetyLine() + '\n' + timeLine() + '\n';
    }

  private:
    int plotColumns() const { return style.columns - labelColumns - 1; }
    double dotsPerColumn() const { return static_cast<double>(heat.dotsAcross()) / plotColumns(); }

    template <class ColorAt>
    static void draw(TextCanvas& canvas, const std::vector<ChartStretch>& stretches,
                     ColorAt colorAt, char ascii) {
        for (const ChartStretch& stretch : stretches) {
            ChartPoint last = stretch.front();
            for (const ChartPoint& point : stretch) {
                canvas.line(nearest(last.x), nearest(last.y), nearest(point.x), nearest(point.y),
                            colorAt, ascii);
                last = point;
            }
        }
    }
    void drawHeat() {
        const auto thermal = [this](int y) -> std::optional<SRGB> {
            const double fraction = 1 - y / layout.heat.height;
            return themeColors::thermal(layout.celsius.lower + fraction * layout.celsius.span());
        };
        const int limit = nearest(layout.yOfCelsius(SafetyLatch::on));
        for (int x = 0; x < heat.dotsAcross(); x += style.unicode ? 4 : 2)
            heat.dot(x, limit, warning, '.');
        const std::vector<ChartSeries> all = chart.temperatures();
        // The one that drives the fans comes last, over the others.
        for (std::size_t i = all.size(); i-- > 0;)
            draw(heat, heatLine(chart, layout, all[i].value), thermal, marks.at(i));
    }
    void drawSpeed() {
        const auto always = [](SRGB color) {
            return [color](int) -> std::optional<SRGB> { return color; };
        };
        draw(speed, speedLine(chart, layout, &ChartSample::load), always(faint), '.');
        draw(speed, speedLine(chart, layout, &ChartSample::speed), always(lesser), '-');
        draw(speed, speedLine(chart, layout, &ChartSample::target), always(themeColors::accent),
             '#');
    }

    template <class Label>
    void append(std::string& all, const TextCanvas& canvas, Label label) const {
        int row = 0;
        for (const std::string& line : canvas.lines()) {
            const std::string words = label(row++);
            const std::size_t width = words.size() - (words.find("°") == std::string::npos ? 0 : 1);
            const std::string border = style.unicode ? "│" : "|";
            all.append(labelColumns - 1 - width, ' ');
            all.append(words).append(" ").append(border).append(line).append("\n");
        }
    }
    std::string celsiusLabel(int row) const {
        const double fraction = 1.0 - static_cast<double>(row) / (heatRows - 1);
        const double celsius = layout.celsius.lower + fraction * layout.celsius.span();
        if (row % 5 != 0)
            return {};
        return std::to_string(std::lround(celsius)) + (style.unicode ? " °C" : " C");
    }
    static std::string percentLabel(int row) {
        return row == 0 ? "100%" : row == speedRows - 1 ? "0%" : "";
    }

    /// Each line's colour, or its mark where there are no dots; as far as the terminal is wide.
    std::string legend() const {
        std::string line = std::string(labelColumns, ' ');
        std::size_t width = line.size();
        const auto add = [&](const std::string& title, SRGB color, char mark) {
            const std::string key = (width > labelColumns ? "   " : "") +
                                    (style.unicode ? std::string() : std::string(1, mark) + ' ');
            width += key.size() + title.size();
            if (width > static_cast<std::size_t>(style.columns))
                return;
            line += key + beginColor(color, style.colors) + title + endColor(style.colors);
        };
        std::size_t index = 0;
        for (const ChartSeries& series : chart.temperatures())
            add(series.title, themeColors::thermal(70), marks.at(index++));
        if (chart.has(&ChartSample::target))
            add("Target", themeColors::accent, '#');
        if (chart.has(&ChartSample::speed))
            add("Fans", lesser, '-');
        if (chart.has(&ChartSample::load))
            add("Load", faint, '.');
        return line;
    }
    std::string safetyLine() const {
        TextCanvas canvas(plotColumns(), 1, style);
        bool any = false;
        for (const ClosedRange& band : safetyBands(chart, layout, 1)) {
            any = true;
            const int last = static_cast<int>(band.upper / dotsPerColumn());
            for (int column = static_cast<int>(band.lower / dotsPerColumn()); column <= last;
                 ++column)
                canvas.write(column, 0, style.unicode ? "▀" : "!", warning);
        }
        return (any ? "safety" : "      ") + std::string(style.unicode ? " └" : " +") +
               (any ? canvas.lines().front() : "");
    }
    std::string timeLine() const {
        TextCanvas canvas(style.columns, 1, style);
        constexpr std::size_t times = 4;
        for (const ChartTime& time : chartTimes(chart, layout, times)) {
            const int length = static_cast<int>(time.text.size());
            const int middle = labelColumns + 1 + static_cast<int>(time.x / dotsPerColumn());
            canvas.write(std::clamp(middle - length / 2, 0, style.columns - length), 0, time.text);
        }
        return canvas.lines().front();
    }

    // Readable on light and on dark ground.
    static constexpr SRGB lesser{0.55, 0.55, 0.58};
    static constexpr SRGB faint{0.45, 0.5, 0.55};
    inline static const SRGB warning = colorOf(themeColors::light.warning);
    static constexpr std::string_view marks = "*+o";

    const Chart& chart;
    const TextStyle& style;
    TextCanvas heat;
    TextCanvas speed;
    ChartLayout layout;
};

} // namespace

std::string chartText(const Chart& chart, const TextStyle& style) {
    return TextWriter(chart, style).text();
}

} // namespace tervale
