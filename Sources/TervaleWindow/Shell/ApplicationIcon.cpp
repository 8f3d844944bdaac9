#include "TervaleWindow/Shell/ApplicationIcon.h"

namespace tervale {

QIcon applicationIcon() {
    QIcon icon;
    for (const int size : {16, 24, 32, 48, 64, 128})
        icon.addFile(QStringLiteral(":/icon/%1.png").arg(size));
    return icon;
}

} // namespace tervale
