// Draws the window's scenes and compares them with the pictures that are kept, or keeps them. A
// picture that differs leaves three: what was, what is, and the difference.
// Usage: tervale-golden [--rebaseline] SCALE KEPT FAILED

#include "TervaleWindow/Appearance/Fonts.h"
#include "TervaleWindow/Shots/ControlsShots.h"
#include "TervaleWindow/Shots/PictureComparison.h"
#include "TervaleWindow/Shots/Scenes.h"
#include "TervaleWindow/Support/Look.h"

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QImageWriter>
#include <QOperatingSystemVersion>
#include <QSet>
#include <QTextStream>

using namespace tervale;

namespace {

constexpr int differs = 1;
constexpr int skipped = 77;

QTextStream out(stdout);

/// What the pictures that are kept were drawn with: others draw letters otherwise.
QString tools() {
    return "Qt " + QString::fromLatin1(qVersion()).section('.', 0, 1) + ", " +
           roundedFont(13, QFont::Normal).family() + '\n';
}

class Gallery {
  public:
    Gallery(QString scale, const QString& kept, const QString& failed, bool rebaseline)
        : scale(std::move(scale)),
          kept(kept),
          failed(failed),
          rebaseline(rebaseline) {}

    void take(const QString& name, const QImage& image) {
        const QString file = name + suffix + '@' + scale + "x.png";
        taken.insert(file);
        rebaseline ? keep(file, image) : check(file, image);
    }
    void drawAll() {
        for (const bool dark : {false, true}) {
            const QPalette palette = dark ? darkLook() : lightLook();
            suffix = dark ? "-dark" : "-light";
            for (const Scene& scene : allScenes())
                take(scene.name, draw(scene, palette, dark));
            QApplication::setPalette(palette);
            drawControls([this](const QString& name, const QImage& image) { take(name, image); });
        }
        lookForOthers();
    }
    int failures() const { return count; }

  private:
    static void save(const QString& path, const QImage& image) {
        QImageWriter writer(path, "png");
        // As small as it gets.
        writer.setQuality(0);
        if (!writer.write(image))
            qFatal("cannot write %s", qPrintable(path));
    }
    /// Pictures that are as they were stay, whatever lone pixels are new.
    void keep(const QString& file, const QImage& image) {
        if (compare(QImage(kept.filePath(file)), image).passes())
            return;
        save(kept.filePath(file), image);
        out << "kept " << file << '\n';
    }
    void check(const QString& file, const QImage& image) {
        const QImage was(kept.filePath(file));
        const PictureComparison comparison = compare(was, image);
        if (comparison.passes())
            return;
        ++count;
        failed.mkpath(".");
        const QString stem = file.chopped(4);
        if (!was.isNull())
            save(failed.filePath(stem + "-was.png"), was);
        save(failed.filePath(stem + "-is.png"), image);
        save(failed.filePath(stem + "-difference.png"), differencePicture(was, image));
        out << file << ": ";
        if (was.isNull())
            out << "is not kept yet";
        else if (!comparison.sameSize)
            out << "has another size";
        else
            out << comparison.differing << " pixels differ";
        out << "; see " << failed.filePath(stem + "-*.png") << '\n';
    }
    /// A picture without a scene shows nothing any more.
    void lookForOthers() {
        for (const QString& file : kept.entryList({"*@" + scale + "x.png"})) {
            if (taken.contains(file))
                continue;
            if (rebaseline) {
                QFile::remove(kept.filePath(file));
                continue;
            }
            ++count;
            out << file << ": no scene has this name\n";
        }
    }

    QString scale;
    QDir kept;
    QDir failed;
    bool rebaseline;
    QString suffix;
    QSet<QString> taken;
    int count = 0;
};

int run(const QStringList& arguments, bool rebaseline) {
    Gallery gallery(arguments.at(0), arguments.at(1), arguments.at(2), rebaseline);
    QFile note(QDir(arguments.at(1)).filePath("drawn-with.txt"));
    if (rebaseline) {
        QDir().mkpath(arguments.at(1));
        if (!note.open(QIODevice::WriteOnly) || note.write(tools().toUtf8()) < 0)
            qFatal("cannot write %s", qPrintable(note.fileName()));
    } else if (note.open(QIODevice::ReadOnly) && note.readAll() != tools().toUtf8()) {
        out << "skipped: the pictures were not drawn with " << tools();
        return skipped;
    }
    gallery.drawAll();
    if (gallery.failures() == 0)
        return 0;
    out << gallery.failures()
        << " pictures differ. If that is meant, './dev shots --rebaseline' keeps the new ones.\n";
    return differs;
}

} // namespace

int main(int count, char** values) {
    QStringList arguments;
    for (int i = 1; i < count; ++i)
        arguments << QString::fromLocal8Bit(values[i]);
    const bool rebaseline = arguments.removeAll("--rebaseline") > 0;
    if (arguments.size() != 3)
        qFatal("usage: tervale-golden [--rebaseline] SCALE KEPT FAILED");
    // Both before the application reads them.
    qputenv("QT_QPA_PLATFORM", "offscreen");
    qputenv("QT_SCALE_FACTOR", arguments.first().toLocal8Bit());
    QApplication application(count, values);
    holdStill();
    wear(Look::own);
    return run(arguments, rebaseline);
}
