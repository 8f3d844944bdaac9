// Draws the window's scenes and compares them with the pictures that are kept, or keeps them. A
// picture that differs leaves three: what was, what is, and the difference.
// Usage: tervale-golden [--rebaseline] SCALE KEPT FAILED, or tervale-golden --tools, which tells
// what they are drawn with here.

#include "TervaleWindow/Appearance/Fonts.h"
#include "TervaleWindow/Shots/ControlsShots.h"
#include "TervaleWindow/Shots/ExactPicture.h"
#include "TervaleWindow/Shots/Gallery.h"
#include "TervaleWindow/Shots/PictureComparison.h"
#include "TervaleWindow/Shots/Scenes.h"
#include "TervaleWindow/Support/Look.h"

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QSet>
#include <QTextStream>

#include <optional>

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

/// Whether a test that cannot be carried out fails, as it does where all tools are to be there.
bool allToolsAreExpected() {
    return qEnvironmentVariable("CI") == QLatin1String("true");
}

class Gallery {
  public:
    Gallery(const QString& scale, const QString& kept, const QString& failed, bool rebaseline)
        : scale(scale),
          kept(kept),
          failed(failed),
          rebaseline(rebaseline) {}

    void drawAll() {
        for (const bool dark : {false, true}) {
            const QPalette palette = dark ? darkLook() : lightLook();
            suffix = dark ? "-dark" : "-light";
            for (const Scene& scene : allScenes())
                take(scene.name, draw(scene, palette, dark));
            QApplication::setPalette(palette);
            drawControls([this](const QString& name, const QImage& image) { take(name, image); });
        }
        lookForUndrawn();
        lookForOthers();
    }
    int failures() const { return count; }

  private:
    void take(const QString& name, const QImage& image) {
        const QString file = name + suffix + '@' + scale + "x.png";
        drawn.insert(file);
        rebaseline ? keep(file, image) : check(file, image);
    }
    static void write(const QString& path, const QByteArray& text) {
        QFile file(path);
        if (!file.open(QIODevice::WriteOnly) || file.write(text) != text.size())
            qFatal("cannot write %s", qPrintable(path));
    }
    static void save(const QString& path, const QImage& image) {
        if (!image.save(path, "PNG"))
            qFatal("cannot write %s", qPrintable(path));
    }
    /// Whatever differs at all is renewed, so that steps too small for the tests do not add up.
    void keep(const QString& file, const QImage& image) {
        if (samePixels(QImage(kept.filePath(file)), image))
            return;
        write(kept.filePath(file), exactPNG(image));
        out << "kept " << file << '\n';
    }
    void check(const QString& file, const QImage& image) {
        const QImage was(kept.filePath(file));
        const PictureComparison comparison = compare(was, image);
        if (comparison.passes())
            return;
        failed.mkpath(".");
        const QString stem = file.chopped(4);
        if (!was.isNull())
            save(failed.filePath(stem + "-was.png"), was);
        save(failed.filePath(stem + "-is.png"), image);
        save(failed.filePath(stem + "-difference.png"), differencePicture(was, image));
        const QString what = was.isNull() ? "is not kept yet"
                             : !comparison.sameSize
                                 ? "has another size"
                                 : QString::number(comparison.differing) + " pixels differ";
        fail(file, what + "; see " + failed.filePath(stem + "-*.png"));
    }
    /// A picture that is named and not drawn would be compared with nothing.
    void lookForUndrawn() {
        for (const QString& file : galleryFiles(scale)) {
            if (!drawn.contains(file))
                fail(file, "is in the gallery, and nothing draws it");
        }
    }
    /// A picture without a scene shows nothing any more.
    void lookForOthers() {
        QStringList known = drawn.values();
        for (const QString& other : galleryScales()) {
            if (other != scale)
                known += galleryFiles(other);
        }
        for (const QString& file : kept.entryList({"*.png"}, QDir::Files)) {
            if (known.contains(file))
                continue;
            if (!rebaseline)
                fail(file, "no scene has this name");
            else if (QFile::remove(kept.filePath(file)))
                out << "removed " << file << '\n';
        }
    }
    void fail(const QString& file, const QString& what) {
        ++count;
        out << file << ": " << what << '\n';
    }

    QString scale;
    QDir kept;
    QDir failed;
    bool rebaseline;
    QString suffix;
    QSet<QString> drawn;
    int count = 0;
};

/// Why the pictures cannot be compared here, if they cannot: the exit status that tells it.
std::optional<int> refuseOtherTools(QFile& note) {
    if (!note.open(QIODevice::ReadOnly)) {
        out << note.fileName() << " is missing\n";
        return differs;
    }
    if (note.readAll() == tools().toUtf8())
        return std::nullopt;
    const bool expected = allToolsAreExpected();
    out << (expected ? "failed" : "skipped") << ": the pictures were not drawn with " << tools();
    return expected ? differs : skipped;
}

int run(const QStringList& arguments, bool rebaseline) {
    const QString& kept = arguments.at(1);
    QFile note(QDir(kept).filePath("drawn-with.txt"));
    if (rebaseline) {
        QDir().mkpath(kept);
        if (!note.open(QIODevice::WriteOnly) || note.write(tools().toUtf8()) < 0)
            qFatal("cannot write %s", qPrintable(note.fileName()));
    } else if (const std::optional<int> status = refuseOtherTools(note)) {
        return *status;
    }
    Gallery gallery(arguments.at(0), kept, arguments.at(2), rebaseline);
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
    const bool asked = arguments == QStringList{"--tools"};
    if (!asked && arguments.size() != 3)
        qFatal("usage: tervale-golden [--rebaseline] SCALE KEPT FAILED, or tervale-golden --tools");
    // Both before the application reads them.
    qputenv("QT_QPA_PLATFORM", "offscreen");
    if (!asked)
        qputenv("QT_SCALE_FACTOR", arguments.first().toLocal8Bit());
    QApplication application(count, values);
    holdStill();
    wear(Look::own);
    if (!asked)
        return run(arguments, rebaseline);
    out << tools();
    return 0;
}
