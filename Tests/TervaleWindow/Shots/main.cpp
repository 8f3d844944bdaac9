// Draws every pane and every control, light and dark, in the sizes and scales that matter, into PNG
// files; then once more in a stock style of the toolkit with the palette of a Mac.

#include "TervaleWindow/Shots/ControlsShots.h"
#include "TervaleWindow/Shots/Scenes.h"
#include "TervaleWindow/Support/Look.h"

#include <QApplication>
#include <QDir>
#include <QTextStream>

#include <tuple>

using namespace tervale;

int main(int argumentCount, char** arguments) {
    QApplication application(argumentCount, arguments);
    holdStill();
    const QDir folder(argumentCount > 1 ? QString::fromLocal8Bit(arguments[1]) : "shots");
    if (!folder.mkpath("."))
        qFatal("cannot make the folder %s", qPrintable(folder.path()));
    const QString scale = qApp->devicePixelRatio() > 1 ? "@2x" : "";
    for (const auto& [look, scheme, suffix] : {std::tuple(Look::own, Scheme::light, "-light"),
                                               {Look::own, Scheme::dark, "-dark"},
                                               {Look::stock, Scheme::light, "-stock-light"},
                                               {Look::stock, Scheme::dark, "-stock-dark"}}) {
        wear(look);
        const QPalette palette = paletteOf(look, scheme);
        const auto save = [&folder, ending = suffix + scale](const QString& name,
                                                             const QImage& image) {
            const QString path = folder.filePath(name + ending + ".png");
            if (!image.save(path))
                qFatal("cannot write %s", qPrintable(path));
            QTextStream(stdout) << path << '\n';
        };
        for (const Scene& scene : allScenes())
            save(scene.name, draw(scene, palette, scheme == Scheme::dark));
        QApplication::setPalette(palette);
        drawControls(save);
    }
    return 0;
}
