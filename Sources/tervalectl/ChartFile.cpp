#include "tervalectl/ChartFile.h"

#include "tervalectl/ChartSVG.h"
#include "tervalectl/ChartText.h"
#include "tervalectl/Files.h"

#include <QDir>
#include <QFileInfo>
#include <QProcess>

#include <algorithm>
#include <cctype>

namespace tervale {

namespace {

bool endsWith(std::string_view file, std::string_view ending) {
    if (file.size() <= ending.size())
        return false;
    return std::ranges::equal(
        file.substr(file.size() - ending.size()), ending,
        [](unsigned char first, unsigned char second) { return std::tolower(first) == second; });
}

} // namespace

ChartKind chartKind(std::string_view file) {
    if (file == "-")
        return ChartKind::text;
    if (endsWith(file, ".svg"))
        return ChartKind::svg;
    return endsWith(file, ".png") ? ChartKind::png : ChartKind::unknown;
}

void writeChart(const Chart& chart, const std::string& file, Context& context) {
    switch (chartKind(file)) {
    case ChartKind::text:
        context.out << chartText(chart, context.textStyle);
        return;
    case ChartKind::svg:
        files::write(file, chartSVG(chart), context);
        return;
    case ChartKind::png:
        files::write(file, context.drawPNG(chartSVG(chart)), context);
        return;
    case ChartKind::unknown:
        throw refusal("A chart is a .svg or a .png file.");
    }
}

void requireChartFile(const std::string& file, Context& context) {
    files::requireWritable(file);
    if (chartKind(file) == ChartKind::png)
        context.drawPNG(chartSVG(Chart("")));
}

std::string drawByWindow(const std::string& svg, const std::string& folder) {
    const QDir here(QString::fromStdString(folder));
    QString program;
    for (const char* name :
         {"tervale-window", "Tervale", "../TervaleWindow/Shell/tervale-window"}) {
        const QString candidate = here.filePath(QLatin1String(name));
        if (program.isEmpty() && QFileInfo(candidate).isExecutable())
            program = candidate;
    }
    if (program.isEmpty())
        throw refusal("A .png is drawn by tervale-window, which is not there; a .svg needs "
                      "nothing.");
    QProcess window;
    window.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    window.start(program, {QStringLiteral("--draw-picture")});
    window.write(svg.data(), static_cast<qint64>(svg.size()));
    window.closeWriteChannel();
    constexpr int longest = 60'000; // milliseconds
    if (!window.waitForFinished(longest) || window.exitStatus() != QProcess::NormalExit ||
        window.exitCode() != 0)
        throw refusal("The picture could not be drawn.");
    return window.readAllStandardOutput().toStdString();
}

} // namespace tervale
