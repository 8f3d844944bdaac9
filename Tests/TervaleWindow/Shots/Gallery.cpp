#include "TervaleWindow/Shots/Gallery.h"

#include "TervaleWindow/Shots/ControlsShots.h"
#include "TervaleWindow/Shots/Scenes.h"

namespace tervale {

QStringList galleryScales() {
    return {"1", "1.5", "2"};
}

QStringList galleryNames() {
    QStringList names;
    for (const Scene& scene : allScenes())
        names << scene.name;
    return names + controlsPictures();
}

QStringList galleryFiles(const QString& scale) {
    QStringList files;
    for (const QString& name : galleryNames()) {
        for (const char* scheme : {"light", "dark"})
            files << name + '-' + scheme + '@' + scale + "x.png";
    }
    return files;
}

} // namespace tervale
