#include "TervaleWindow/Style/FloatingPanels.h"

#include "TervaleWindow/Style/MenuPainting.h"

#include <QBitmap>
#include <QEvent>
#include <QGuiApplication>
#include <QMenu>

namespace tervale {

namespace {

/// An X server without a compositor paints translucent corners black, and there is no portable way
/// to ask for one, so windows are cut to shape there.
bool cutsWindowsToShape() {
    return QGuiApplication::platformName() == QLatin1String("xcb");
}

QBitmap shape(const QSize& size) {
    QBitmap bitmap(size);
    bitmap.clear();
    QPainter painter(&bitmap);
    painter.setPen(Qt::color1);
    painter.setBrush(Qt::color1);
    painter.drawRoundedRect(0, 0, size.width() - 1, size.height() - 1, menuRadius, menuRadius);
    return bitmap;
}

} // namespace

bool FloatingPanels::isPanel(const QWidget* widget) {
    return widget &&
           (qobject_cast<const QMenu*>(widget) || widget->inherits("QComboBoxPrivateContainer"));
}

void FloatingPanels::prepare(QWidget* widget) {
    if (cutsWindowsToShape())
        widget->installEventFilter(this);
    else
        widget->setAttribute(Qt::WA_TranslucentBackground);
}

bool FloatingPanels::eventFilter(QObject* object, QEvent* event) {
    auto* widget = qobject_cast<QWidget*>(object);
    if (widget && (event->type() == QEvent::Resize || event->type() == QEvent::Show))
        widget->setMask(shape(widget->size()));
    return QObject::eventFilter(object, event);
}

} // namespace tervale
