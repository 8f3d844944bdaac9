#include "TervaleWindow/Controls/MenuButton.h"

#include "TervaleWindow/Appearance/Fonts.h"

#include <QKeyEvent>
#include <QMenu>

#include <algorithm>

namespace tervale {

MenuButton::MenuButton(const QString& title, QMenu* menu, QWidget* parent)
    : QPushButton(title, parent) {
    setFont(systemFont(fontSize::body));
    menu->setParent(this, menu->windowFlags());
    setMenu(menu);
}

QSize MenuButton::sizeHint() const {
    const QSize natural = QPushButton::sizeHint();
    return {std::max(natural.width(), leastWidth), natural.height()};
}

void MenuButton::keyPressEvent(QKeyEvent* event) {
    switch (event->key()) {
    case Qt::Key_Up:
    case Qt::Key_Down:
    case Qt::Key_Return:
    case Qt::Key_Enter:
        showMenu();
        break;
    default:
        QPushButton::keyPressEvent(event);
    }
}

} // namespace tervale
